// Random gestures and commands on forms of several kinds; ./dev fuzz --kinds walk takes long ones.
#include "tests/support/designer_walk.h"

#include <gtest/gtest.h>

#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"
#include "tests/support/walk_answers.h"
#include "tests/support/walk_forms.h"

namespace {

constexpr int STEPS = 120;

class RandomWalk : public testing::Test {
protected:
    RandomWalk() { boxes.OnAnyOther(WalkAnswer); }

    std::string Put(const FormBuilder &form) {
        form.Write(folder.Path("START.FP"));
        return folder.Path("START.FP");
    }
    // Walks from the form with each of these seeds.
    void Walk(const std::string &form, std::initializer_list<uint32_t> seeds) {
        for (const uint32_t seed : seeds) {
            std::vector<WalkStep> steps;
            for (int number = 0; number < STEPS; ++number) steps.push_back(StepOf(seed, number));
            size_t taken = 0;
            const std::string wrong = WalkAll(form, folder.Root(), steps, &taken);
            if (wrong.empty()) continue;
            steps.resize(taken);
            ADD_FAILURE() << "seed " << seed << ", step " << taken << ": " << wrong
                          << "\nthe shortest way there:\n"
                          << TextOf(Shortest(form, folder.Root(), steps));
        }
    }

    MessageBoxes boxes;
    TemporaryFolder folder;
};

} // namespace

TEST_F(RandomWalk, KeepsANewFormSound) { Walk("", {1, 2}); }

TEST_F(RandomWalk, KeepsAFormWithSortLevelsSound) { Walk(Put(SortedForm()), {3, 4}); }

TEST_F(RandomWalk, KeepsALabelSheetSound) { Walk(Put(LabelSheetForm()), {5}); }

TEST(WalkSteps, AreReadBackFromTheirText) {
    const std::vector<WalkStep> steps{{'p', 10, -20, 5, 7}, {'c', 675, 0, 0, 4000000000U}};
    EXPECT_EQ(TextOf(StepsOf(TextOf(steps))), "p 10 -20 5 7\nc 675 0 0 4000000000\n");
}
