// One look: what an agent's gets share between kova_look_begin and kova_look_end, and what ends it. Whoever reads a
// source of the router asks here first. This is the only place that keeps anything, and the only one with a heap.
#pragma once

#include <stdio.h>
#include <uci.h>

#include <cstddef>
#include <span>
#include <string_view>

namespace kova {

// For its lifetime the router may be changed, unless nothing `happens`: what was kept before is gone, and nothing is
// kept meanwhile.
class Effect {
 public:
  explicit Effect(bool happens = true) : happens_(happens) {
    if (happens_) begin();
  }
  ~Effect() {
    if (happens_) end();
  }
  Effect(const Effect&) = delete;
  Effect& operator=(const Effect&) = delete;

 private:
  static void begin();
  static void end();

  const bool happens_;
};

// A get, for its lifetime, unless nothing `happens`. What it has looked at anew, the gets after it see as well.
class Getting {
 public:
  explicit Getting(bool happens);
  ~Getting();
  Getting(const Getting&) = delete;
  Getting& operator=(const Getting&) = delete;

 private:
  const bool happens_;
};

// What was kept before is no more for the get that goes on; outside of gets it is gone.
void look_anew();

// Whether what is found now is worth keeping.
bool is_looking();

// What a source is called. A script is run for the files that it leaves, by a get that then reads them.
struct SourceName {
  enum Kind { COMMAND, SCRIPT, TEXT_FILE, PACKAGE, BUS } kind;
  std::string_view parts[3];
};

// Bytes that grow, on the heap; gone with the scope.
class Bytes {
 public:
  Bytes() = default;
  ~Bytes();
  Bytes(const Bytes&) = delete;
  Bytes& operator=(const Bytes&) = delete;

  // Where so many can be put that are added then. nullptr without memory, or when a look could not keep that much.
  char* more(std::size_t size);
  void add(std::size_t size) { size_ += size; }

  bool append(const void* bytes, std::size_t size);

  std::span<char> get() const { return {start_, size_}; }
  std::size_t room() const { return room_; }
  void swap(Bytes& other);

 private:
  char* start_ = nullptr;
  std::size_t size_ = 0;
  std::size_t room_ = 0;
};

// What came of looking at a source.
struct Finding {
  bool failed = false;
  int error = 0;                   // the bus's own, or a script's status
  const char* step = nullptr;      // at which the bus failed
  uci_context* context = nullptr;  // that holds the package
  uci_package* package = nullptr;
  Bytes bytes;
  int error_number = 0;  // what the system's was set to meanwhile, as logs tell it
};

struct Kept;

// A source, for one reader. What the look has of it stays until the reader is done, whatever ends the look.
class Source {
 public:
  // Has the system's error number be what looking at the source has left, where that was kept.
  explicit Source(const SourceName& name);
  ~Source();
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  // What was kept; nullptr when the source has to be looked at.
  const Finding* kept() const;

  // Whether what is found now is worth keeping.
  bool is_wanted() const { return wanted_; }

  // Keeps what was found, which the look then owns. False when there is no room: it is still the reader's.
  bool keep(Finding& found);

 private:
  const SourceName name_;
  const long since_;
  const bool wanted_;
  const int error_number_;
  Kept* kept_;
};

// A source that is read as a text: what was kept of it, else the stream that `open` opens. In a look it is read ahead
// and kept, unless it is too large or takes too long.
class LookedStream {
 public:
  using Open = FILE* (*)(const char* name, const char* mode);
  using Close = int (*)(FILE* stream);

  LookedStream(SourceName::Kind kind, const char* name, const char* mode, Open open, Close close_stream);
  ~LookedStream() { this->close(); }
  LookedStream(const LookedStream&) = delete;
  LookedStream& operator=(const LookedStream&) = delete;

  explicit operator bool() const { return opened_; }
  FILE* get() const { return stream_; }

  // Reads the next line, with its newline where it fits; false at the end and for one that cannot be read. At the end,
  // `line` is as it was. Where a signal interrupts, reading goes on.
  bool read_line(std::span<char> line);

  int close();

 private:
  bool read_ahead();
  int next();
  bool breaks_off() const { return stream_ != nullptr && ferror(stream_) != 0; }

  Source source_;
  Close close_;
  FILE* stream_ = nullptr;
  bool opened_;
  Finding found_;
  std::span<const char> ahead_;  // what was read ahead, and is still to be handed out
};

}  // namespace kova
