#include <quillmarker/rtf.h>

int main() { return 0; }
