#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace nestrix {

/// Lists of records, one per cell of a grid, each a chain of blocks of as many records as there are lanes.
/// The storage is kept when the lists are emptied.
/// @tparam TBlock default-made, it holds nothing; has the members m_nUsed, records in it, and m_nNext.
template <class TBlock>
class CBlockLists {
public:
    static constexpr uint32_t NO_BLOCK = UINT32_MAX;

    /// @param nBlocks how many blocks are likely to be needed; there may be more.
    void Reset(size_t nLists, size_t nBlocks) {
        m_Heads.assign(nLists, NO_BLOCK);
        m_Blocks.clear();
        m_Blocks.reserve(nBlocks);
    }

    void Clear() {
        if (!m_Blocks.empty()) {
            m_Heads.assign(m_Heads.size(), NO_BLOCK);
            m_Blocks.clear();
        }
    }

    /// The list's block with a free place, which is at its m_nUsed.
    [[nodiscard]] TBlock& BlockWithRoom(size_t nList, size_t nCapacity) {
        uint32_t& nHead = m_Heads[nList];
        if (nHead == NO_BLOCK || m_Blocks[nHead].m_nUsed == nCapacity) {
            m_Blocks.emplace_back().m_nNext = nHead;
            nHead = static_cast<uint32_t>(m_Blocks.size() - 1);
        }
        return m_Blocks[nHead];
    }

    /// Calls `visit(block)` for each block of the list, the latest first.
    template <class TVisit>
    void Visit(size_t nList, const TVisit& visit) const {
        for (uint32_t nBlock = m_Heads[nList]; nBlock != NO_BLOCK; nBlock = m_Blocks[nBlock].m_nNext) {
            visit(m_Blocks[nBlock]);
        }
    }

private:
    std::vector<uint32_t> m_Heads;  ///< of each list its latest block
    std::vector<TBlock> m_Blocks;
};

}  // namespace nestrix
