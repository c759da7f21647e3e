// dobj: make, inspect, slice, convert and render buffer files from the command line.

#include "Run.h"

int main(int argc, char ** argv)
{
    return Dobj::Run(argc, argv);
}
