#include "arena/main/KeptMemory.h"

#include <malloc.h>

namespace arena {

void keepFreedMemory() {
  mallopt(M_MMAP_MAX, 0);         // large blocks too come from the heap
  mallopt(M_TRIM_THRESHOLD, -1);  // which never shrinks
}

}  // namespace arena
