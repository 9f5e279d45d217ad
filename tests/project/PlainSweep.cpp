#include "PlainSweep.h"

namespace vtr {

std::vector<std::size_t> PlainSweep(const std::array<TargetRecord, targetTotal> &targets) {
    std::vector<std::size_t> order;
    std::array<bool, targetTotal> taken{};
    for (int x = 0; x <= 639; ++x)
        for (int y = 0; y <= 319; ++y)
            for (std::size_t t = 0; t < targetTotal; ++t)
                if (!taken[t] && x <= targets[t].x && targets[t].x <= x + 3 && targets[t].y == y) {
                    order.push_back(t);
                    taken[t] = true;
                }
    return order;
}

}  // namespace vtr
