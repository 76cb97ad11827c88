// Every handler that the family headers declare.
#pragma once

#include <string>

#include "families.h"

namespace kova::test {

enum class Access { READ_ONLY, READ_WRITE };

struct Row {
  std::string name;
  parameter_handler handler;
  Access access;
};

#undef KOVA_PARAMETER
#define KOVA_PARAMETER(handler, access, ...) {#handler, handler, Access::access},
inline const Row kCatalogue[] = {
#include "families.h"
};

// Values of which every writable handler takes one.
inline const char* const kCommonValues[] = {"1",
                                            "0",
                                            "192.168.1.100",
                                            "100",
                                            "1400",
                                            "static",
                                            "tcp",
                                            "text of eight and more",
                                            "20MHz",
                                            "None",
                                            "AESEncryption",
                                            "PSKAuthentication",
                                            "12345678",
                                            "bgn",
                                            "Requested",
                                            "custom",
                                            "iptv",
                                            "Device.IP.Interface.2."};

}  // namespace kova::test
