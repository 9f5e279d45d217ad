// Makes map.dat, the head of every generated map picture, from the list of terrain colours.
// Called by the build: MapTemplate <terrain-colours.txt> <map.dat>

#include <charconv>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "TerrainMap.h"

namespace {

using namespace vtr;

constexpr std::size_t typeCount = 64;
constexpr std::size_t orientationCount = 4;
constexpr std::size_t fileHeaderSize = 14;
constexpr std::size_t infoHeaderSize = 40;
constexpr std::size_t colourTable = fileHeaderSize + infoHeaderSize;
constexpr std::size_t templateSize = colourTable + typeCount * orientationCount * 4;

void PutHeaders(ByteSpan bytes) {
    bytes[0] = 'B';
    bytes[1] = 'M';
    PutUint32(bytes, 2, templateSize + terrainSize);  // size of the whole picture file
    PutUint32(bytes, 10, templateSize);               // where its pixels begin
    PutUint32(bytes, 14, infoHeaderSize);
    PutUint32(bytes, 18, mapWidth);
    PutUint32(bytes, 22, mapHeight);                     // positive: the bottom row is stored first
    PutUint16(bytes, 26, 1);                             // planes
    PutUint16(bytes, 28, 8);                             // bits per pixel
    PutUint32(bytes, 34, terrainSize);                   // size of the pixels
    PutUint32(bytes, 46, typeCount * orientationCount);  // colours used
}

std::uint32_t ColourOf(const std::string &text) {
    std::uint32_t colour = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, colour, 16);
    if (text.size() != 6 || error != std::errc{} || stop != end)
        throw std::runtime_error("expected a colour as six hexadecimal digits, found \"" + text + "\"");
    return colour;
}

/// Takes one line of the list; the terrain byte's two high bits are the orientation, the low six the type.
void PutType(std::size_t type, const std::string &line, ByteSpan bytes) {
    std::istringstream words(line);
    std::size_t number = typeCount;
    std::string name;
    words >> number >> name;
    if (number != type)
        throw std::runtime_error("expected tile type " + std::to_string(type) + ", found \"" + line + "\"");
    for (std::size_t orientation = 0; orientation < orientationCount; ++orientation) {
        std::string text;
        words >> text;
        PutUint32(bytes, colourTable + 4 * (orientation * typeCount + type), ColourOf(text));
    }
    if (std::string rest; words >> rest)
        throw std::runtime_error("expected the end of the line, found \"" + rest + "\"");
}

Bytes TemplateOf(std::istream &list) {
    Bytes bytes(templateSize);
    PutHeaders(bytes);
    std::size_t type = 0;
    int number = 0;
    for (std::string line; std::getline(list, line);) {
        ++number;
        if (line.empty() || line[0] == '#')
            continue;
        try {
            if (type == typeCount)
                throw std::runtime_error("expected no line after tile type 63, found \"" + line + "\"");
            PutType(type++, line, bytes);
        } catch (const std::runtime_error &error) {
            throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
        }
    }
    if (type != typeCount)
        throw std::runtime_error("expected 64 tile types, found " + std::to_string(type));
    return bytes;
}

}  // namespace

int main(int argc, char **argv) {
    if (argc != 3) {
        std::cerr << "usage: MapTemplate <terrain-colours.txt> <map.dat>\n";
        return 2;
    }
    const std::string listPath = argv[1];
    const std::string templatePath = argv[2];
    try {
        std::ifstream list(listPath);
        if (!list)
            throw std::runtime_error("cannot be read");
        const Bytes bytes = TemplateOf(list);
        std::ofstream file(templatePath, std::ios::binary);
        for (const std::uint8_t byte : bytes)
            file.put(static_cast<char>(byte));
        file.close();
        if (!file)
            throw std::runtime_error("\"" + templatePath + "\" cannot be written");
    } catch (const std::exception &error) {
        std::cerr << listPath << ": " << error.what() << '\n';
        return 1;
    }
    return 0;
}
