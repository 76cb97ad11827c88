// The loading process comes first when the symbols of the plug-in and of the platform's libraries are resolved. Where
// kovadm defines a function of the C library's or the platform's, this gets at the real one.
#pragma once

#include <dlfcn.h>

#define REAL(function) static const auto real = reinterpret_cast<decltype(&(function))>(dlsym(RTLD_NEXT, #function))
