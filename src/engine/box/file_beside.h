#pragma once

#include "engine/box/descriptor.h"

#include <filesystem>
#include <string_view>

struct stat;

namespace quillmarker
{

/// A new file beside `target`, under a name nobody can have prepared, which goes away again unless it takes the
/// target's place. A step that fails makes the ones behind it do nothing.
class FileBeside
{
public:
    FileBeside(std::filesystem::path target, unsigned mode);
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside();

    void Write(std::string_view bytes);

    /// Gives the file the permissions of the one it will replace, and where the system lets us its owner and group.
    void TakeOver(const struct stat& old);

    /// Brings the file to disk and puts it in the target's place. The system's error number of the first step that
    /// failed.
    int Replace();

private:
    template <typename Action>
    void Step(Action action);

    std::filesystem::path m_target;
    std::filesystem::path m_path;
    Descriptor m_file;
    int m_error = 0;
    bool m_made = false;
};

}  // namespace quillmarker
