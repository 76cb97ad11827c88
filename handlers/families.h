/* Every family of parameters. No guard: a catalogue includes this list a second time, for its rows. */
/* In the order in which a walk shows them. */
/* clang-format off */
#include "pkg-dev/pkg-dev.h"
#include "pkg-mgmt/pkg-mgmt.h"
#include "pkg-lan/pkg-lan.h"
#include "pkg-wan/pkg-wan.h"
#include "pkg-wl/pkg-wl.h"
#include "pkg-diag/pkg-diag.h"
#include "pkg-br/pkg-br.h"
#include "pkg-mobile/pkg-mobile.h"
