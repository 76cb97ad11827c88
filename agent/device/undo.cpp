#include "device/undo.hpp"

#include "seam/paths.hpp"
#include "seam/platform.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;

fs::path place(const std::string& path) { return seam::platform().place(path); }

seam::Texts stores_now() {
  seam::Texts texts = seam::kept_files();
  for (const char* record : {seam::kTaskRecord, seam::kTaskRecordOnce}) {
    if (fs::is_regular_file(place(record))) texts[record] = seam::read_file(place(record));
  }
  return texts;
}

}  // namespace

Undo::Undo() : texts_(stores_now()) {
  for (const auto& [path, ignored] : texts_) permissions_[path] = fs::status(place(path)).permissions();
}

void Undo::put_back() const {
  for (const auto& [path, ignored, before] : seam::differences(stores_now(), texts_)) {
    if (!before) {
      fs::remove(place(path));
      continue;
    }
    fs::create_directories(place(path).parent_path());
    seam::write_file(place(path), *before);
    fs::permissions(place(path), permissions_.at(path));
  }
}

}  // namespace kovadm
