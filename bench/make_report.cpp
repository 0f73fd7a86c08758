// Writes a generated report into a file: make_report SIZE_MB OUT [MARKERS]

#include "generated_report.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    constexpr double kMegabyte = 1e6;
    const double size = argc > 2 ? std::strtod(argv[1], nullptr) : 0;
    if (argc < 3 || argc > 4 || !(size > 0))
    {
        std::cerr << "usage: make_report SIZE_MB OUT [MARKERS]\n";
        return 2;
    }
    const int markers = argc == 4 ? std::atoi(argv[3]) : 0;
    const auto bytes = static_cast<std::size_t>(size * kMegabyte);
    std::ofstream file(argv[2], std::ios::binary);
    file << quillmarker::GeneratedReport({bytes, markers});
    file.close();
    if (!file)
    {
        std::cerr << "make_report: cannot write " << argv[2] << '\n';
        return 1;
    }
    return 0;
}
