#include "authoring/authoring_command_line.h"

int main(int argc, char** argv) { return zev::runAuthoring(argc, argv); }
