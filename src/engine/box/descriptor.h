#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace quillmarker
{

/// Owns a file the system has opened. Each step answers the system's error number, 0 for none.
class Descriptor
{
public:
    Descriptor() = default;
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    /// Opens `path` with the flags and the mode of open(2), never as a terminal and not for child processes. What isn't
    /// open has its reason in errno.
    static Descriptor Open(const std::filesystem::path& path, int flags, unsigned mode = 0);

    bool IsOpen() const { return m_number >= 0; }
    int Number() const { return m_number; }

    /// Puts all there is to read into `bytes`; `expected` says how much that will be, if that is known.
    int ReadAll(std::size_t expected, std::string& bytes) const;

    int WriteAll(std::string_view bytes) const;

    /// Brings what was written to disk. Pipes, devices and some file systems have nothing to bring there.
    int Sync() const;

    /// Some file systems tell only here that the disk is full.
    int Close();

private:
    int m_number = -1;
};

}  // namespace quillmarker
