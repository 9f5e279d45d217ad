#include "RandomLines.h"

namespace vtr {

namespace {

std::int16_t Below(int limit, std::mt19937 &random) {
    return static_cast<std::int16_t>(random() % static_cast<unsigned>(limit));
}

}  // namespace

double RandomFineOffset(std::mt19937 &random) {
    switch (random() % 3) {
        case 0:
            return 0;
        case 1:
            return Below(4, random) * 1025;
        default:
            return static_cast<double>(random() % 262144) / 262144 * 4100;
    }
}

void EndFrontline(Frontline &frontline, std::size_t count) {
    for (std::size_t p = count; p < frontlinePointTotal; ++p)
        frontline.points[p] = p == count && count > 0 ? markerPoint : zeroPoint;
}

void FillWithRandomLines(Campaign &campaign, std::mt19937 &random) {
    // More often few than many, which take long to write as text.
    const std::size_t used = random() % (1 + random() % (railwayLineTotal + 1));
    for (std::size_t i = 0; i < railwayLineTotal; ++i) {
        campaign.RailwayTable[i] = {};
        campaign.RailwayTable[i].fineOffsets = {};
        if (i >= used)
            continue;
        campaign.RailwayTable[i] = {Below(640, random), Below(640, random), Below(320, random),
                                    Below(320, random)};
        for (double &fineOffset : campaign.RailwayTable[i].fineOffsets)
            fineOffset = RandomFineOffset(random);
    }
    for (std::size_t slot = 0; slot < frontlineTotal; ++slot) {
        Frontline &frontline = campaign.FrontlineTable[slot];
        for (FrontlinePoint &point : frontline.points)
            point = {Below(640, random), Below(320, random), random() % 2 == 0 ? flagSet : std::uint16_t{0}};
        EndFrontline(frontline, random() % (slot + 1 < frontlineTotal ? 30 : 31));
    }
}

}  // namespace vtr
