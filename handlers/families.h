/* Every family of parameters. No guard: a catalogue includes this list a second time, for its rows. */
#include "pkg-br/pkg-br.h"
#include "pkg-dev/pkg-dev.h"
#include "pkg-diag/pkg-diag.h"
#include "pkg-lan/pkg-lan.h"
#include "pkg-mgmt/pkg-mgmt.h"
#include "pkg-mobile/pkg-mobile.h"
#include "pkg-wan/pkg-wan.h"
#include "pkg-wl/pkg-wl.h"
