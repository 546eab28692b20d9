#include <tlm/foundation/PresentationText.h>
