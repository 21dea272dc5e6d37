// The system's headers, as every file of this folder includes them.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
