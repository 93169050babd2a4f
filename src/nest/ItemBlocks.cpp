#include "nest/ItemBlocks.h"

#include <algorithm>
#include <numeric>

namespace nestrix {

namespace {

/// So many items move at a time if those are all of them, and so many if there are more.
constexpr size_t MOST_AT_ONCE = 400;
constexpr size_t ITEMS_IN_BLOCK = 200;

}  // namespace

std::vector<std::vector<size_t>> BlocksOf(std::span<const SPlace> places) {
    std::vector<size_t> items(places.size());
    std::iota(items.begin(), items.end(), size_t{0});
    if (items.size() <= MOST_AT_ONCE) {
        return {items};
    }
    std::stable_sort(items.begin(), items.end(),
                     [&](size_t a, size_t b) { return places[a].m_At.m_Y < places[b].m_At.m_Y; });
    std::vector<std::vector<size_t>> blocks;
    for (size_t i = 0; i < items.size(); ++i) {
        if (i % ITEMS_IN_BLOCK == 0) {
            blocks.emplace_back();
        }
        blocks.back().push_back(items[i]);
    }
    return blocks;
}

}  // namespace nestrix
