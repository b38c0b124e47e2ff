#include "Cli.h"

#include <iostream>

int main(int argc, char** argv) {
    CLI::App app{"zefra: moist-air states and air-handling processes on the enthalpy-humidity chart"};
    app.require_subcommand(1);
    zefra::cli::RegisterAirCommands(app);
    zefra::cli::RegisterSchemeCommands(app);
    zefra::cli::RegisterConfigCommands(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::CallForAllHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        std::cerr << "zefra: " << e.what() << "\n";
        std::cerr << "Run with --help for the usage.\n";
        return 2;
    } catch (const zefra::cli::UsageError& e) {
        std::cerr << "zefra: " << e.what() << "\n";
        return 2;
    } catch (const zefra::cli::CalculationError& e) {
        std::cerr << "zefra: " << e.what() << "\n";
        return 2;
    } catch (const std::exception& e) {
        std::cerr << "zefra: internal error: " << e.what() << "\n";
        return 1;
    }
    return 0;
}
