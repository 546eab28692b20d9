#include <fiscora/About.h>

namespace fiscora {

std::string url()
{
    return "https://tallymere.example/fiscora";
}

std::string licence()
{
    return "Apache-2.0";
}

std::string copyright()
{
    return "© 2026 The Tallymere authors";
}

std::string description()
{
    return "Exact amounts of money, the currencies of ISO 4217, and their exchange";
}

std::string version()
{
    return FISCORA_VERSION;
}
}
