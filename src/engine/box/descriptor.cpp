#include "engine/box/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace quillmarker
{

namespace
{

constexpr std::size_t kChunk = std::size_t{64} * 1024;

}  // namespace

Descriptor Descriptor::Open(const std::filesystem::path& path, int flags, unsigned mode)
{
    Descriptor file;
    do
        file.m_number = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
    while (file.m_number < 0 && errno == EINTR);
    return file;
}

int Descriptor::ReadAll(std::size_t expected, std::string& bytes) const
{
    std::size_t size = 0;
    bytes.resize(expected + 1);  // one more, so that the end is seen without growing
    for (;;)
    {
        if (size == bytes.size())
            bytes.resize(size + std::max(size / 2, kChunk));
        const ssize_t count = ::read(m_number, bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno != EINTR)
            return errno;
        if (count == 0)
            break;
        size += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    bytes.resize(size);
    return 0;
}

int Descriptor::WriteAll(std::string_view bytes) const
{
    while (!bytes.empty())
    {
        const ssize_t written = ::write(m_number, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return errno;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int Descriptor::Sync() const
{
    if (::fsync(m_number) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS)
        return 0;
    return errno;
}

int Descriptor::Close()
{
    if (!IsOpen() || ::close(std::exchange(m_number, -1)) == 0 || errno == EINTR)
        return 0;
    return errno;
}

}  // namespace quillmarker
