#include "files.h"

#include "standard_streams.h"
#include "utf.h"

#include <quillmarker/rtf.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <new>
#include <stdexcept>
#include <utility>

namespace quillmarker::tool
{
namespace
{

namespace fs = std::filesystem;

struct SystemError
{
    int code;
    FileError error;
};

constexpr SystemError kSystemErrors[] = {
    {ENOENT, FileError::FileNotFound},      {EACCES, FileError::PermissionDenied}, {EPERM, FileError::PermissionDenied},
    {ENAMETOOLONG, FileError::BadFileName}, {ENOTDIR, FileError::PathNotFound},    {EIO, FileError::DeviceError},
    {ENOMEM, FileError::OutOfMemory},
};

FileError ErrorOf(int code)
{
    const auto* const found = std::ranges::find(kSystemErrors, code, &SystemError::code);
    return found == std::end(kSystemErrors) ? FileError::PathFileAccess : found->error;
}

std::string BytesOf(const Document& document, FileKind kind)
{
    return kind == FileKind::Rtf ? WriteRtf(document) : ToUtf8(document.Text());
}

/// What a file says of its size, which need not be true; 0 for what has none.
std::size_t ExpectedSize(const std::string& name)
{
    std::error_code unsized;
    const std::uintmax_t size = name == kStandardStream ? 0 : fs::file_size(name, unsized);
    return unsized ? 0 : static_cast<std::size_t>(size);
}

std::string AllBytes(std::istream& input, std::size_t expected)
{
    constexpr std::size_t kPart = 0x10000;
    std::string bytes(std::max(expected + 1, kPart), '\0');  // one more, so that the end is seen without growing
    std::size_t size = 0;
    while (input.read(bytes.data() + size, static_cast<std::streamsize>(bytes.size() - size)))
    {
        size = bytes.size();
        bytes.resize(size + size / 2);
    }
    bytes.resize(size + static_cast<std::size_t>(input.gcount()));
    return bytes;
}

}  // namespace

Failure FailureOf(const std::string& name, FileError error, const char* stream)
{
    return {Shown(name, stream) + ": " + Describe(error)};
}

std::string Shown(const std::string& name, const char* stream) { return name == kStandardStream ? stream : name; }

Result<std::unique_ptr<std::istream>> OpenInput(const std::string& name)
{
    if (name == kStandardStream)
        return std::make_unique<std::istream>(std::cin.rdbuf());
    std::error_code ignored;
    if (fs::is_directory(name, ignored))
        return FailureOf(name, FileError::PathFileAccess);
    errno = 0;
    auto file = std::make_unique<std::ifstream>(name, std::ios::binary);
    if (!*file)
        return FailureOf(name, ErrorOf(errno));
    return std::unique_ptr<std::istream>(std::move(file));
}

Result<std::string> ReadInput(const std::string& name)
{
    auto opened = OpenInput(name);
    if (!opened)
        return Failure{opened.Message()};
    std::istream& input = **opened;
    try
    {
        std::string bytes = AllBytes(input, ExpectedSize(name));
        return input.bad() ? Result<std::string>(FailureOf(name, FileError::DeviceError)) : std::move(bytes);
    }
    catch (const std::bad_alloc&)
    {
        return FailureOf(name, FileError::OutOfMemory);
    }
    catch (const std::length_error&)
    {
        return FailureOf(name, FileError::OutOfMemory);
    }
}

Result<Document> ReadDocument(const std::string& name)
{
    if (name != kStandardStream)
    {
        TextBox box;
        const FileError error = box.LoadFile(name);
        return error == FileError::None ? Result<Document>(box.Value()) : FailureOf(name, error);
    }
    const auto bytes = ReadInput(name);
    return bytes ? Result<Document>(ReadRtf(*bytes)) : Failure{bytes.Message()};
}

Result<bool> WriteDocument(const Document& document, const std::string& name, FileKind kind)
{
    if (name == kStandardStream)
    {
        Print(BytesOf(document, kind));
        return true;
    }
    TextBox box;
    box.OpenValue(document);
    const FileError error = box.SaveFile(name, kind);
    return error == FileError::None ? Result<bool>(true) : FailureOf(name, error);
}

}  // namespace quillmarker::tool
