// The page's files, page.html, page.css and page.js, and what a browser has to know to take the latter two for ours.
#pragma once

namespace kovadm {

extern const char kPageTemplate[];
extern const char kPageStyle[];
extern const char kPageScript[];
extern const char kPageStyleHash[];
extern const char kPageScriptHash[];

}  // namespace kovadm
