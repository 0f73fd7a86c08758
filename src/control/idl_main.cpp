#include "control/idl_writer.h"

#include <fstream>
#include <iostream>

// Writes the description of the interface to the file that is named.
int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::cerr << "usage: quillmarker_idl FILE\n";
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    file << quillmarker::TypeLibraryIdl();
    file.close();
    if (!file)
    {
        std::cerr << "quillmarker_idl: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}
