#include "look.hpp"

#include <errno.h>
#include <poll.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "pkg-tool.h"
#include "room.hpp"

namespace kova {

// A source of the look's, in its list and with each reader.
struct Kept {
  SourceName::Kind kind;
  std::size_t lengths[3];  // of the name's parts, which are behind this one after the other
  Finding found = {};
  unsigned long number = 0;
  long since = 0;        // seconds of a clock that only goes forward
  std::size_t size = 0;  // all that it takes
  int holders = 0;
  Kept* next = nullptr;

  char* parts() { return reinterpret_cast<char*>(this + 1); }
};

namespace {

// All that a look keeps at most, in bytes, and how long, in seconds.
constexpr std::size_t kMost = 1024 * 1024;
constexpr long kLongest = 60;

// A package takes about five times its file's size in memory, with the short names and values that are usual.
constexpr uint64_t kPackageFactor = 6;

bool begun = false;
int effects = 0;
int gets = 0;
unsigned long last_number = 0;  // of all that were kept
unsigned long seen_before = 0;  // the last that the get which goes on does not see any more
Kept* first = nullptr;
std::size_t kept_size = 0;

long now() {
  timespec time = {};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<long>(time.tv_sec);
}

void release(Kept* kept) {
  if (--kept->holders > 0) return;
  kept_size -= kept->size;
  if (kept->found.context != nullptr) uci_free_context(kept->found.context);
  kept->~Kept();
  free(kept);
}

// Takes one out of the list, which then is for its readers only.
void drop(Kept** place) {
  Kept* const kept = *place;
  *place = kept->next;
  release(kept);
}

void drop_all() {
  while (first != nullptr) drop(&first);
}

bool has_name(Kept& kept, const SourceName& name) {
  const char* part = kept.parts();
  for (std::size_t i = 0; i < std::size(kept.lengths); ++i) {
    if (name.parts[i] != std::string_view(part, kept.lengths[i])) return false;
    part += kept.lengths[i];
  }
  return kept.kind == name.kind;
}

std::size_t length_of(const SourceName& name) {
  std::size_t length = 0;
  for (const std::string_view part : name.parts) length += part.size();
  return length;
}

uint64_t size_of(const Finding& found) {
  return found.bytes.room() + (found.package != nullptr ? kPackageFactor * file_size(*found.package) : 0);
}

// Makes one that has the name, and nothing found. nullptr without memory.
Kept* make(const SourceName& name) {
  void* const memory = malloc(sizeof(Kept) + length_of(name));
  if (memory == nullptr) return nullptr;
  Kept* const kept = new (memory) Kept{name.kind, {name.parts[0].size(), name.parts[1].size(), name.parts[2].size()}};
  char* end = kept->parts();
  for (const std::string_view part : name.parts) end = std::copy(part.begin(), part.end(), end);
  return kept;
}

// Waits a while for something to read, or the end: 1 when there is, 0 when not, -1 when a signal came first. Streams
// without a file never have one wait.
int wait_for(int file) {
  constexpr int kPatience = 1000;  // milliseconds
  pollfd wanted = {file, POLLIN, 0};
  return file < 0 ? 1 : poll(&wanted, 1, kPatience);
}

// A part of a stream; 0 at its end, -1 on an error.
ssize_t read_part(FILE* stream, char* place, std::size_t size) {
  if (fileno(stream) >= 0) return read(fileno(stream), place, size);
  const std::size_t got = fread(place, 1, size, stream);
  return got > 0 || ferror(stream) == 0 ? static_cast<ssize_t>(got) : -1;
}

// The system's error number stays what it is without a look.
class ErrorNumber {
 public:
  ErrorNumber() = default;
  ~ErrorNumber() { errno = error_; }
  ErrorNumber(const ErrorNumber&) = delete;
  ErrorNumber& operator=(const ErrorNumber&) = delete;

 private:
  const int error_ = errno;
};

__attribute__((destructor)) void unload() { kova_look_end(); }

}  // namespace

void Effect::begin() {
  drop_all();
  ++effects;
}

void Effect::end() { --effects; }

Getting::Getting(bool happens) : happens_(happens) {
  if (happens_) ++gets;
}

Getting::~Getting() {
  if (happens_ && --gets == 0) seen_before = 0;
}

void look_anew() {
  if (gets > 0) {
    seen_before = last_number;
  } else {
    drop_all();
  }
}

bool is_looking() { return begun && effects == 0; }

Bytes::~Bytes() { free(start_); }

char* Bytes::more(std::size_t size) {
  if (size > room_ - size_) {
    const std::size_t room = std::max(2 * room_, size_ + size);
    if (kept_size + room > kMost) return nullptr;
    char* const start = static_cast<char*>(realloc(start_, room));
    if (start == nullptr) return nullptr;
    start_ = start;
    room_ = room;
  }
  return start_ + size_;
}

bool Bytes::append(const void* bytes, std::size_t size) {
  if (size == 0) return true;
  char* const place = more(size);
  if (place == nullptr) return false;
  memcpy(place, bytes, size);
  add(size);
  return true;
}

void Bytes::swap(Bytes& other) {
  std::swap(start_, other.start_);
  std::swap(size_, other.size_);
  std::swap(room_, other.room_);
}

Source::Source(const SourceName& name)
    : name_(name),
      since_(is_looking() ? now() : 0),
      wanted_(is_looking() && (name.kind != SourceName::SCRIPT || gets > 0)),
      error_number_(errno),
      kept_(nullptr) {
  if (!wanted_) return;
  for (Kept** place = &first; *place != nullptr;) {
    const bool is_same = has_name(**place, name);
    if (since_ - (*place)->since >= kLongest || (is_same && (*place)->number <= seen_before)) {
      drop(place);
      continue;
    }
    if (is_same) {
      kept_ = *place;
      ++kept_->holders;
      if (name.kind == SourceName::SCRIPT) seen_before = kept_->number - 1;  // as if it had run for this get
      if (kept_->found.error_number != 0) errno = kept_->found.error_number;
      return;
    }
    place = &(*place)->next;
  }
}

Source::~Source() {
  const ErrorNumber same;
  if (kept_ != nullptr) release(kept_);
}

const Finding* Source::kept() const { return kept_ != nullptr ? &kept_->found : nullptr; }

bool Source::keep(Finding& found) {
  const ErrorNumber same;
  if (!is_looking()) return false;
  const uint64_t size = sizeof(Kept) + length_of(name_) + size_of(found);
  if (size > kMost - kept_size) return false;
  Kept* const kept = make(name_);
  if (kept == nullptr) return false;
  kept->found.failed = found.failed;
  if (found.failed || errno != error_number_) kept->found.error_number = errno;
  kept->found.error = found.error;
  kept->found.step = found.step;
  kept->found.context = found.context;
  kept->found.package = found.package;
  kept->found.bytes.swap(found.bytes);
  kept->number = ++last_number;
  kept->since = since_;
  kept->size = static_cast<std::size_t>(size);
  kept->holders = 2;
  kept->next = first;
  first = kept;
  kept_ = kept;
  kept_size += kept->size;
  return true;
}

LookedStream::LookedStream(SourceName::Kind kind, const char* name, const char* mode, Open open, Close close_stream)
    : source_({kind, {name != nullptr ? name : ""}}), close_(close_stream) {
  if (const Finding* kept = source_.kept()) {
    opened_ = !kept->failed;
    ahead_ = kept->bytes.get();
    return;
  }
  stream_ = open(name, mode);
  opened_ = stream_ != nullptr;
  if (!source_.is_wanted()) return;
  found_.failed = !opened_;
  const bool is_whole = !opened_ || read_ahead();
  ahead_ = found_.bytes.get();  // which is there as long, whoever has it
  if (!is_whole) return;
  source_.keep(found_);
  const ErrorNumber same;
  this->close();
}

// Whether the end was reached. Who writes now and then, and never ends, would not end here either.
bool LookedStream::read_ahead() {
  constexpr std::size_t kPart = 1024;
  constexpr long kMostSeconds = 2;
  for (long since = 0; since == 0 || now() - since < kMostSeconds;) {
    const int ready = since == 0 ? 1 : wait_for(fileno(stream_));
    if (ready == 0) return false;
    if (ready < 0) continue;
    char* const place = found_.bytes.more(kPart);
    if (place == nullptr) return false;
    const ssize_t size = read_part(stream_, place, kPart);
    if (size == 0) return true;
    if (size > 0) found_.bytes.add(static_cast<std::size_t>(size));
    if (size < 0 && errno != EINTR) return false;
    if (size < 0) clearerr(stream_);
    if (since == 0 && size > 0) since = now();
  }
  return false;
}

int LookedStream::next() {
  if (ahead_.empty()) return stream_ != nullptr && !breaks_off() ? getc(stream_) : EOF;
  const char c = ahead_.front();
  ahead_ = ahead_.subspan(1);
  return static_cast<unsigned char>(c);
}

bool LookedStream::read_line(std::span<char> line) {
  size_t length = 0;
  while (length + 1 < line.size() && (length == 0 || line[length - 1] != '\n')) {
    const int c = next();
    if (c != EOF) {
      line[length++] = static_cast<char>(c);
    } else if (breaks_off() && errno == EINTR) {
      clearerr(stream_);  // an agent's handler of some signal; nothing is lost
    } else if (breaks_off() || length == 0) {
      return false;
    } else {
      break;
    }
  }
  line[length] = '\0';
  return true;
}

int LookedStream::close() {
  FILE* const stream = stream_;
  stream_ = nullptr;
  return stream != nullptr ? close_(stream) : 0;
}

}  // namespace kova

using namespace kova;

void kova_look_begin() {
  drop_all();
  begun = true;
}

void kova_look_end() {
  drop_all();
  begun = false;
}
