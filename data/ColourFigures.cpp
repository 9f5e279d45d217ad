// Tells how well the layers' colours can be told from the maps and from each other, for those who see all
// colours and for the colour-blind: ColourFigures <prefs.cfg> <terrain-colours.txt>

#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>

#include "ColourVision.h"
#include "MapGrounds.h"
#include "Preferences.h"

namespace {

using namespace vtr;

struct Layer {
    const char *name;
    std::int32_t colour;
};

constexpr std::array<const char *, 4> eyeNames{"all cones", "no long", "no middle", "no short"};

std::vector<Layer> LayersOf(const Preferences &preferences) {
    return {{"frontline", preferences.FrontlineColour},
            {"railway", preferences.RailwayColour},
            {"road int", preferences.RoadIntColour},
            {"rail int", preferences.RailIntColour},
            {"target", preferences.TargetColour},
            {"airfield", preferences.AirfieldColour},
            {"highlight", 65535}};
}

/// One line a layer, one column an eye: the luminance contrast and the colour difference.
void PrintFiguresOn(const Ground &ground, const std::vector<Layer> &layers) {
    std::cout << "\nContrast and difference from 19 in 20 colours of the " << ground.name << '\n'
              << std::setw(10) << "";
    for (const char *eye : eyeNames)
        std::cout << std::setw(13) << eye;
    for (const Layer &layer : layers) {
        std::cout << '\n' << std::setw(10) << layer.name;
        for (const ColourMatrix &eye : eyes)
            std::cout << std::setw(7) << std::setprecision(2)
                      << ContrastToMost(ground.colours, layer.colour, eye) << std::setw(6)
                      << std::setprecision(1) << DifferenceFromMost(ground.colours, layer.colour, eye);
    }
    std::cout << '\n';
}

/// How far apart each two layers are, for one kind of eyes.
void PrintPairs(std::size_t eye, const std::vector<Layer> &layers) {
    std::cout << "\nDifference of each two layers, " << eyeNames[eye] << '\n' << std::setprecision(0);
    for (const Layer &layer : layers) {
        std::cout << std::setw(10) << layer.name;
        for (const Layer &other : layers)
            std::cout << std::setw(5) << Difference(layer.colour, other.colour, eyes[eye]);
        std::cout << '\n';
    }
}

}  // namespace

int main(int argc, char **argv) {
    if (argc != 3) {
        std::cerr << "usage: ColourFigures <prefs.cfg> <terrain-colours.txt>\n";
        return 2;
    }
    std::ifstream file(argv[1], std::ios::binary);
    const Bytes bytes{std::istreambuf_iterator<char>(file), {}};
    const std::vector<Layer> layers = LayersOf(DecodePreferences(bytes).preferences);
    std::cout << std::fixed;
    for (const Ground &ground : MapGrounds(argv[2]))
        PrintFiguresOn(ground, layers);
    for (std::size_t eye = 0; eye < eyes.size(); ++eye)
        PrintPairs(eye, layers);
    return 0;
}
