#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

namespace quillmarker
{

/// The distinct ids that were added, while they are few; beyond that it only knows that there are more.
template <class Id>
class FewIds
{
public:
    static constexpr int kMost = 8;

    void Add(Id id)
    {
        const std::span<const Id> known = Ids();
        if (std::ranges::find(known, id) != known.end())
            return;
        if (m_count == kMost)
            m_isComplete = false;
        else
            m_ids[m_count++] = id;
    }

    void Add(const FewIds& others)
    {
        m_isComplete = m_isComplete && others.m_isComplete;
        for (const Id id : others.Ids())
            Add(id);
    }

    /// Whether these are all ids that were added.
    bool IsComplete() const { return m_isComplete; }
    std::span<const Id> Ids() const { return {m_ids.data(), std::size_t(m_count)}; }

private:
    std::uint8_t m_count = 0;
    bool m_isComplete = true;
    std::array<Id, kMost> m_ids{};
};

}  // namespace quillmarker
