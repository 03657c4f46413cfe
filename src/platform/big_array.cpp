#include "platform/big_array.h"

#include <sys/mman.h>
#include <unistd.h>

namespace quillon {

namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;

std::size_t WholePages(std::size_t bytes, std::size_t page) {
    return (bytes + page - 1) / page * page;
}

char* Map(std::size_t bytes) {
    void* const pages = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return pages == MAP_FAILED ? nullptr : static_cast<char*>(pages);
}

}  // namespace

void* AllocatePages(std::size_t bytes) {
    constexpr std::size_t kPage = BigArray<char>::kPage;
    if (bytes < kHugePage) return Map(WholePages(bytes, kPage));
    // Taken larger, then cut so that it starts on a huge page.
    const std::size_t kept = WholePages(bytes, kPage);
    char* const pages = Map(kept + kHugePage);
    if (!pages) return nullptr;
    const std::size_t head = kHugePage - reinterpret_cast<std::uintptr_t>(pages) % kHugePage;
    ::munmap(pages, head);
    if (head != kHugePage) ::munmap(pages + head + kept, kHugePage - head);
    ::madvise(pages + head, kept, MADV_HUGEPAGE);
    return pages + head;
}

void FreePages(void* pages, std::size_t bytes) {
    ::munmap(pages, WholePages(bytes, BigArray<char>::kPage));
}

std::uint64_t PhysicalMemory() {
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long bytes = ::sysconf(_SC_PAGESIZE);
    if (pages <= 0 || bytes <= 0) return 0;
    return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(bytes);
}

}  // namespace quillon
