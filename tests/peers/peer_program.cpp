#include "peers/peer_program.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

namespace quillmarker
{
namespace
{

namespace fs = std::filesystem;

bool Runs(const std::string& command)
{
    return std::system(command.c_str()) == 0;  // NOLINT(concurrency-mt-unsafe): a test runs one at a time
}

std::string ContentOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string CommandOf(Peer peer, const fs::path& folder, PeerOutput output)
{
    const std::string begin =
        "cd '" + folder.string() + "' && HOME='" + folder.string() + "' timeout --kill-after=10 120 ";
    const std::string end = " >/dev/null 2>&1 </dev/null";
    const bool isText = output == PeerOutput::Text;
    if (peer == Peer::AbiWord)
        return begin + "abiword --to=" + (isText ? "txt" : "rtf") + " --to-name=out/sample." +
               (isText ? "txt" : "rtf") + " sample.rtf" + end;
    return begin + "soffice '-env:UserInstallation=file://" + folder.string() + "/profile' --headless --convert-to " +
           (isText ? "'txt:Text (encoded):UTF8'" : "rtf") + " --outdir out sample.rtf" + end;
}

}  // namespace

bool IsInstalled(Peer peer)
{
    return Runs(std::string("command -v ") + (peer == Peer::AbiWord ? "abiword" : "soffice") + " >/dev/null 2>&1");
}

PeerFolder::PeerFolder()
{
    std::string name = (fs::temp_directory_path() / "quillmarker-peer-XXXXXX").string();
    if (const char* made = mkdtemp(name.data()))
        m_path = made;
}

PeerFolder::~PeerFolder()
{
    std::error_code ignored;
    if (!m_path.empty())
        fs::remove_all(m_path, ignored);
}

std::string PeerFolder::Converted(Peer peer, const std::string& rtf, PeerOutput output) const
{
    if (m_path.empty())
        return {};
    const fs::path result = m_path / "out" / (output == PeerOutput::Text ? "sample.txt" : "sample.rtf");
    fs::create_directories(result.parent_path());
    fs::remove(result);
    std::ofstream(m_path / "sample.rtf", std::ios::binary) << rtf;
    return Runs(CommandOf(peer, m_path, output)) ? ContentOf(result) : std::string();
}

}  // namespace quillmarker
