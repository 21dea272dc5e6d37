#include "util/application.h"

const char* const AppVersion = TAVIMOR_VERSION;
