#include <exception>
#include <iostream>

#include "SampleCampaign.h"

int main(int count, char *arguments[]) {
    if (count != 2) {
        std::cerr << "usage: make_sample_campaign FOLDER\n";
        return 2;
    }
    try {
        vtr::WriteSampleCampaign(arguments[1]);
    } catch (const std::exception &error) {
        std::cerr << "make_sample_campaign: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
