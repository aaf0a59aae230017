#include "tools/formats/program.h"
#include "tools/text_places/place_tour.h"

int main(int argc, char** argv) {
    std::string output;
    CLI::App app("Finds where on the panel each string is shown, in which fonts and in how much room.", "text-places");
    app.add_option("-o,--output", output, "file of the places, a line each")->required();
    return RunProgram(app, argc, argv, [&] {
        if (!WriteTextPlaces(output)) throw std::runtime_error("cannot write " + output);
    });
}
