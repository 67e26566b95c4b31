#include "arena/record/Recorder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <exception>
#include <system_error>
#include <utility>

namespace arena {

Recorder::Recorder(const std::string& file, const RecordSettings& settings, std::size_t mostWaiting)
    : name_(file), mostWaiting_(mostWaiting) {
  file_ = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (file_ < 0) throw std::system_error(errno, std::generic_category(), file);
  write(RecordEncoder::begin(settings));
  thread_ = std::thread([this] { run(); });
}

Recorder::~Recorder() {
  stop(/*inOrder=*/false);
}

void Recorder::keep(const CycleRecord& record) {
  {
    const std::scoped_lock lock(mutex_);
    if (failed_ || ending_) return;
    if (waiting_.size() < mostWaiting_) {
      waiting_.push_back(record);
    } else {
      failed_ = true;
      fault_ = name_ + ": the disk is too slow";
    }
  }
  changed_.notify_one();
}

void Recorder::finish() {
  stop(/*inOrder=*/true);
}

void Recorder::stop(bool inOrder) {
  {
    const std::scoped_lock lock(mutex_);
    if (!ending_) inOrder_ = inOrder;
    ending_ = true;
  }
  changed_.notify_one();
  if (thread_.joinable()) thread_.join();
  if (file_ >= 0 && ::close(std::exchange(file_, -1)) != 0) fail(std::strerror(errno));
}

std::optional<std::string> Recorder::takeFault() {
  const std::scoped_lock lock(mutex_);
  return std::exchange(fault_, std::nullopt);
}

void Recorder::run() {
  for (;;) {
    std::deque<CycleRecord> batch;
    bool inOrder = false;
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return ending_ || failed_ || !waiting_.empty(); });
      if (failed_) return waiting_.clear();
      batch.swap(waiting_);
      inOrder = inOrder_;
    }
    if (batch.empty()) {
      if (inOrder) write(RecordEncoder::end());
      return;
    }
    try {
      for (const CycleRecord& record : batch) {
        if (!write(encoder_.cycle(record))) return;
      }
    } catch (const std::exception& error) {
      return fail(error.what());
    }
  }
}

bool Recorder::write(const std::string& piece) {
  std::size_t done = 0;
  while (done < piece.size()) {
    const ssize_t sent = ::write(file_, piece.data() + done, piece.size() - done);
    if (sent < 0 && errno == EINTR) continue;
    if (sent < 0) {
      fail(std::strerror(errno));
      // Half a piece would only look like damage. What can't be cut stays: readers know of it.
      [[maybe_unused]] const int cut = ::ftruncate(file_, written_);
      return false;
    }
    done += static_cast<std::size_t>(sent);
  }
  written_ += static_cast<long long>(piece.size());
  return true;
}

void Recorder::fail(const std::string& why) {
  const std::scoped_lock lock(mutex_);
  if (failed_) return;
  failed_ = true;
  fault_ = name_ + ": " + why;
}

}  // namespace arena
