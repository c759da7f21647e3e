#pragma once

namespace CLI {
class App;
}

namespace Dobj {

// Each adds its subcommand, with options and action, to the application.
void AddDemoCommand(CLI::App & app);
void AddInfoCommand(CLI::App & app);
void AddStatsCommand(CLI::App & app);
void AddSliceCommand(CLI::App & app);
void AddConvertCommand(CLI::App & app);
void AddRenderCommand(CLI::App & app);

} // namespace Dobj
