#include "platform/text.hpp"
