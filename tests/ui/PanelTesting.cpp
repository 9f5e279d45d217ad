#include "PanelTesting.h"

#include <cmath>

#include "RandomCampaign.h"

namespace vtr {

std::string RoundedMetres(double value) {
    const double low = std::floor(value);
    const bool up = value - low > 0.5 || (value - low == 0.5 && std::fmod(low, 2) == 1);
    return std::to_string(static_cast<int>(low) + (up ? 1 : 0));
}

std::unique_ptr<Campaign> FilledCampaign() {
    auto campaign = std::make_unique<Campaign>();
    std::mt19937 random(20261101);  // NOLINT: the same on every run
    FillWithRandomTables(*campaign, random);
    FillWithRandomLines(*campaign, random);
    FillWithRandomPaths(*campaign, random);
    for (std::size_t i = 0; i < targetNameTotal; ++i)
        campaign->TargetNameTable[i] = "Place " + std::to_string(i) + (i % 7 == 0 ? " K\xF6ln" : "");
    for (std::size_t i = 0; i < targetTotal; ++i) {
        TargetRecord &target = campaign->TargetTable[i];
        target.code = static_cast<std::uint16_t>(i % 150);
        target.name = campaign->TargetNameTable[target.code];
        target.count %= 65;
        target.airfield_ref = static_cast<std::uint16_t>(i % 2 == 0 ? 1 + i % 161 : 0);
        target.airfield_mark = i % 2 == 0 ? flagSet : std::uint16_t{0};
    }
    return campaign;
}

std::unique_ptr<Session> FilledSession() {
    auto session = std::make_unique<Session>();
    session->campaign = *FilledCampaign();
    return session;
}

}  // namespace vtr
