#pragma once
#include <windows.h>

#include "platform/color.hpp" // IWYU pragma: export
