#include <cstdio>
#include <cstdlib>

#include "fuzz/kinds.h"
#include "fuzz/places.h"
#include "tests/support/designer_walk.h"
#include "tests/support/walk_forms.h"

namespace {

constexpr size_t STEPS_OF_A_SEED = 60;
constexpr size_t MOST_STEPS = 400;

std::string FormOf(char first) {
    const std::string path = ScratchPath("START.FP");
    if (first == 'n') return "";
    (first == 'l' ? LabelSheetForm() : SortedForm()).Write(path);
    return path;
}

// The first line names the form: n new, l labels, s sorted; a step stands on each other line.
std::vector<std::string> Seeds() {
    std::vector<std::string> seeds;
    uint32_t seed = 0;
    for (const char *form : {"n\n", "l\n", "s\n", "s\n"}) {
        std::vector<WalkStep> steps;
        for (size_t step = 0; step < STEPS_OF_A_SEED; ++step)
            steps.push_back(StepOf(seed, static_cast<int>(step)));
        seeds.push_back(form + TextOf(steps));
        ++seed;
    }
    return seeds;
}

// Steps put in, taken out and repeated.
std::string Changed(Random *random, const std::string &input) {
    std::vector<WalkStep> steps = StepsOf(input.substr(2));
    const uint32_t seed = random->Next();
    for (int times = random->Between(1, 12); times > 0; --times) {
        const auto place = steps.begin() + static_cast<ptrdiff_t>(random->Below(steps.size() + 1));
        if (steps.size() > 4 && random->OneIn(3) && place != steps.end())
            steps.erase(place);
        else
            steps.insert(place, StepOf(seed, random->Between(0, 1000)));
    }
    if (steps.size() > MOST_STEPS) steps.resize(MOST_STEPS);
    return input.substr(0, 2) + TextOf(steps);
}

void Run(const std::string &input) {
    if (input.size() < 2) return;
    const std::string form = FormOf(input[0]);
    const std::vector<WalkStep> steps = StepsOf(input.substr(2));
    size_t taken = 0;
    const std::string wrong = WalkAll(form, ScratchPath("."), steps, &taken);
    if (wrong.empty()) return;
    std::printf("after step %zu: %s\n", taken, wrong.c_str());
    for (const WalkStep &step : Shortest(FormOf(input[0]), ScratchPath("."), steps))
        std::printf("%s", TextOf({step}).c_str());
    std::fflush(stdout);
    std::abort();
}

} // namespace

const Kind designer_walks = {"walk", Seeds, Changed, Run};
