// Runs a fuzz target over kept inputs, once each: every file named on the command line and every file in a named folder.
// Fails if there is none, so that a moved folder is noticed; a find fails by crashing.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

namespace fs = std::filesystem;

void AddFiles(const fs::path& place, std::vector<fs::path>& files)
{
    if (!fs::is_directory(place))
    {
        files.push_back(place);
        return;
    }
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(place))
    {
        if (entry.is_regular_file())
        {
            files.push_back(entry.path());
        }
    }
}

bool Replay(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
    {
        std::fprintf(stderr, "cannot read %s\n", file.c_str());
        return false;
    }
    const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    // The name goes out before the run: after a crash it is the last line.
    std::fprintf(stderr, "%s\n", file.c_str());
    // A copy of exactly this size, so that the address sanitizer sees a read past its end.
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i)
    {
        AddFiles(argv[i], files);
    }
    bool allRead = true;
    for (const fs::path& file : files)
    {
        allRead = Replay(file) && allRead;
    }
    std::fprintf(stderr, "%zu inputs replayed\n", files.size());
    return allRead && !files.empty() ? 0 : 1;
}
