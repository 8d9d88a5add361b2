#include "app/run_driver.h"

int main(int argc, char** argv) { return zev::runDriver(argc, argv); }
