#pragma once

#include <string>

/// Lines about this library for an about box, in UTF-8.
namespace fiscora {

std::string url();
std::string licence();
std::string copyright();
std::string description();
std::string version();
}
