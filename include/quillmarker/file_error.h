#pragma once

namespace quillmarker
{

/// Why a file could not be read or written. The numbers are what the members that load and save return.
enum class FileError : int {
    None = 0,
    OutOfMemory = 7,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76
};

/// One clause of plain English, to stand behind a file's name: "the disk is full".
constexpr const char* Describe(FileError error)
{
    switch (error)
    {
    case FileError::None:
        return "there was no error";
    case FileError::OutOfMemory:
        return "there is not enough memory";
    case FileError::BadFileName:
        return "the file name is not valid";
    case FileError::FileNotFound:
        return "the file does not exist";
    case FileError::DeviceError:
        return "the device reported an error";
    case FileError::DiskFull:
        return "the disk is full";
    case FileError::PermissionDenied:
        return "permission was denied";
    case FileError::PathFileAccess:
        return "it cannot be read or written as a file";
    case FileError::PathNotFound:
        return "the folder does not exist";
    }
    return "the error is not known";
}

}  // namespace quillmarker
