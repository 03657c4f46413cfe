#include "platform/big_array.h"

#include <sys/mman.h>
#include <unistd.h>

namespace quillon {

void AdviseHugePages(void* block, std::size_t size) {
    ::madvise(block, size, MADV_HUGEPAGE);
}

std::uint64_t PhysicalMemory() {
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long bytes = ::sysconf(_SC_PAGESIZE);
    if (pages <= 0 || bytes <= 0) return 0;
    return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(bytes);
}

}  // namespace quillon
