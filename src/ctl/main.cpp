#include "ctl/CommandLine.h"

int main(int argc, char** argv) { return feedloom::RunCommandLine(argc, argv); }
