#include "engine/box/file_beside.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <utility>

namespace quillmarker
{

namespace
{

// Empty when the system has no random numbers.
std::string RandomName()
{
    std::array<unsigned char, 12> random{};
    if (::getrandom(random.data(), random.size(), 0) != static_cast<ssize_t>(random.size()))
        return {};
    std::string name = ".quillmarker-";
    for (const unsigned char byte : random)
    {
        name += "0123456789abcdef"[byte >> 4];
        name += "0123456789abcdef"[byte & 15];
    }
    return name;
}

}  // namespace

FileBeside::FileBeside(std::filesystem::path target, unsigned mode) : m_target(std::move(target))
{
    do
    {
        const std::string name = RandomName();
        m_error = EIO;
        if (name.empty())
            return;
        m_path = m_target.parent_path() / name;
        m_file = Descriptor::Open(m_path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
        m_error = m_file.IsOpen() ? 0 : errno;
    } while (m_error == EEXIST);
    m_made = m_file.IsOpen();
}

FileBeside::~FileBeside()
{
    if (m_made)
        ::unlink(m_path.c_str());
}

template <typename Action>
void FileBeside::Step(Action action)
{
    if (m_error == 0)
        m_error = action();
}

void FileBeside::Write(std::string_view bytes)
{
    Step([&] { return m_file.WriteAll(bytes); });
}

void FileBeside::TakeOver(const struct stat& old)
{
    Step([&] {
        [[maybe_unused]] const int ignored = ::fchown(m_file.Number(), old.st_uid, old.st_gid);
        return ::fchmod(m_file.Number(), old.st_mode & 07777) == 0 ? 0 : errno;
    });
}

int FileBeside::Replace()
{
    Step([&] { return m_file.Sync(); });
    Step([&] { return m_file.Close(); });
    Step([&] { return ::rename(m_path.c_str(), m_target.c_str()) == 0 ? 0 : errno; });
    m_made = m_made && m_error != 0;
    return m_error;
}

}  // namespace quillmarker
