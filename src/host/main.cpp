#include "host/Host.h"

int main(int argc, char** argv) { return feedloom::RunHost(argc, argv); }
