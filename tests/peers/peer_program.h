#pragma once

#include <filesystem>
#include <string>

namespace quillmarker
{

enum class Peer { LibreOffice, AbiWord };
enum class PeerOutput { Text, Rtf };

bool IsInstalled(Peer);

/// A folder of its own for one program's run, gone at the end.
class PeerFolder
{
public:
    PeerFolder();
    ~PeerFolder();
    PeerFolder(const PeerFolder&) = delete;
    PeerFolder& operator=(const PeerFolder&) = delete;

    /// What the program makes of the RTF source, run with a profile in this folder and stopped after two minutes;
    /// empty when it fails.
    std::string Converted(Peer peer, const std::string& rtf, PeerOutput output) const;

private:
    std::filesystem::path m_path;
};

}  // namespace quillmarker
