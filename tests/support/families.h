/* The family headers; no guard, since a catalogue includes them a second time. */
#include "pkg-dev/pkg-dev.h"
#include "pkg-lan/pkg-lan.h"
#include "pkg-mgmt/pkg-mgmt.h"
#include "pkg-wan/pkg-wan.h"
