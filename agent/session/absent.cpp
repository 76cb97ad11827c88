// In the place of sessions, where kovadm was built without the libraries that they take.
#include "session/session.hpp"

namespace kovadm::session {

int run_session(Context&, Options&) { throw SetupError("this kovadm was built without sessions: " KOVADM_LACKS); }

}  // namespace kovadm::session
