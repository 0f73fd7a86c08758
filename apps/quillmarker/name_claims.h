#pragma once

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

namespace quillmarker::tool
{

/// Which line writes which file. Lines are worked on side by side but claim their names in their order, so that of
/// two lines with one name it is always the later that is refused.
class NameClaims
{
public:
    /// Waits for the lines before; each ticket, counted from 0, claims once. A line without a name claims none.
    /// The number of the line that has the name already, or 0.
    std::int64_t Claim(std::int64_t ticket, std::int64_t line, const std::optional<std::string>& name)
    {
        std::unique_lock lock(m_mutex);
        m_turn.wait(lock, [&] { return m_next == ticket; });
        ++m_next;
        m_turn.notify_all();
        if (!name)
            return 0;
        const auto [owner, isNew] = m_owners.emplace(std::filesystem::path(*name).lexically_normal().string(), line);
        return isNew ? 0 : owner->second;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_turn;
    std::int64_t m_next = 0;
    std::unordered_map<std::string, std::int64_t> m_owners;
};

}  // namespace quillmarker::tool
