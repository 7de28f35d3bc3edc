#include "platform/large_blocks.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <sys/mman.h>

namespace hourwright::platform {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20;
// From here on a block takes whole large pages.
constexpr std::size_t smallestLarge = std::size_t{256} << 10;

// Maps a large page more than is needed and gives back what lies before and behind.
void* mapAligned(std::size_t bytes) {
    void* const mapped = ::mmap(nullptr, bytes + largePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        throw std::bad_alloc{};
    auto* const all = static_cast<std::byte*>(mapped);
    const std::size_t before = (largePage - reinterpret_cast<std::uintptr_t>(all) % largePage) % largePage;
    if (before != 0)
        ::munmap(all, before);
    ::munmap(all + before + bytes, largePage - before);
    // A wish: where it is not known, nothing is lost.
    ::madvise(all + before, bytes, MADV_HUGEPAGE);
    return all + before;
}

class LargeBlocks final : public std::pmr::memory_resource {
    static bool isLarge(std::size_t bytes) { return bytes >= smallestLarge; }
    static std::size_t inPages(std::size_t bytes) { return (bytes + largePage - 1) / largePage * largePage; }

    void* do_allocate(std::size_t bytes, std::size_t alignment) override {
        return isLarge(bytes) ? mapAligned(inPages(bytes))
                              : std::pmr::new_delete_resource()->allocate(bytes, alignment);
    }

    void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override {
        if (isLarge(bytes))
            ::munmap(block, inPages(bytes));
        else
            std::pmr::new_delete_resource()->deallocate(block, bytes, alignment);
    }

    [[nodiscard]] bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override {
        return this == &other;
    }
};

} // namespace

std::pmr::memory_resource& largeBlocks() {
    static LargeBlocks blocks;
    return blocks;
}

} // namespace hourwright::platform
