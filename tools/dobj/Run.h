#pragma once

namespace Dobj {

//! The whole tool: parses the command line, runs the subcommand and returns the exit status:
//! 0 done, 1 failed (one line "dobj: <what>" on stderr), 2 bad usage.
int Run(int argc, char const * const * argv);

} // namespace Dobj
