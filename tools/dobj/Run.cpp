#include "Run.h"

#include "Commands.h"

#include "basis/Exception.h"

#include <CLI/CLI.hpp>

#include <QString>

#include <cstdio>
#include <new>

namespace Dobj {

int Run(int argc, char const * const * argv)
{
    CLI::App app("dobj: buffer files of flow measurement images: make, inspect, slice, convert, render.", "dobj");
    app.require_subcommand(1);
    AddDemoCommand(app);
    AddInfoCommand(app);
    AddStatsCommand(app);
    AddSliceCommand(app);
    AddConvertCommand(app);
    AddRenderCommand(app);
    try {
        app.parse(argc, argv);
        return 0;
    } catch (CLI::ParseError const & usage) {
        return app.exit(usage) == 0 ? 0 : 2;
    } catch (Basis::Exception const & failure) {
        std::fprintf(stderr, "dobj: %s\n", failure.message().toLocal8Bit().constData());
    } catch (std::bad_alloc const &) {
        std::fprintf(stderr, "dobj: out of memory\n");
    } catch (std::exception const & failure) {
        std::fprintf(stderr, "dobj: %s\n", failure.what());
    }
    return 1;
}

} // namespace Dobj
