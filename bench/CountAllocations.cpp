// Counts the heap allocations of the process that this library is loaded into, in a file that the
// environment variable ALLOCATION_COUNT names and that holds one 64-bit number. Who reads that file
// while the process waits knows what it has taken so far.

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// The C library's own names for what is put in front of it here.
// NOLINTBEGIN(clang-diagnostic-reserved-identifier)
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);
// NOLINTEND(clang-diagnostic-reserved-identifier)

namespace {

/// Before the file is there, and when it can't be had, the counts go nowhere.
std::uint64_t nowhere = 0;
std::uint64_t* counter = &nowhere;

void countOne() {
  std::atomic_ref<std::uint64_t>(*counter).fetch_add(1, std::memory_order_relaxed);
}

[[gnu::constructor]] void openCounter() {
  const char* name = std::getenv("ALLOCATION_COUNT");
  const int file = name != nullptr ? open(name, O_RDWR | O_CLOEXEC) : -1;
  if (file < 0) return;
  void* place = mmap(nullptr, sizeof(nowhere), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  if (place != MAP_FAILED) counter = static_cast<std::uint64_t*>(place);
  close(file);
}

}  // namespace

extern "C" void* malloc(std::size_t size) noexcept {
  countOne();
  return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
  countOne();
  return __libc_calloc(count, size);
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
  countOne();
  return __libc_realloc(block, size);
}
