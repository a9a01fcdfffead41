// Whole runs of forms with words that no designer writes: a run starts or is refused, and ends.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "frame/session_table.h"
#include "session/session_life.h"
#include "tests/support/form_files.h"
#include "tests/support/report_run.h"

using namespace tessarine;

namespace {

constexpr int ROUNDS = 150;
constexpr uint16_t odd_words[] = {0,  1,  2,   4,   12,   31,     255,   0x7FFF,
                                  32, 33, 500, 544, 1002, 0x8000, 0xFFFF};

// A place inside one of the blocks that a run works with.
size_t PlaceIn(const FormBlocks &blocks, std::mt19937 *random) {
    const auto any = [&](size_t count) { return (*random)() % count; };
    switch (any(5)) {
    case 0: return 82 + any(900);
    case 1: return blocks.items + any(13) * sizeof(ItemRecord) + any(2) * 319 + any(30);
    case 2: return blocks.fields + any(8) * sizeof(FieldRecord) + 104 + any(400);
    case 3: return blocks.sections + any(MAX_SECTIONS) * sizeof(SectionRecord) + any(20);
    default: return blocks.breaks + any(sizeof(BreakFieldRecord) - 1);
    }
}

// What a refused start leaves behind, which a host can't release.
void ReleaseRefusedSessions() {
    for (int slot = 0; slot < MAX_SESSIONS; ++slot) {
        Session *session = GetSessionPointer(nullptr, slot);
        if (!session) continue;
        if (session->form.TablesAllocated) CloseSession(session);
        FreeSession(session);
    }
}

} // namespace

TEST(DamagedFormRun, OddWordsAnywhereEndInAnOrderlyWay) {
    MessageBoxes boxes;
    FullForm form;
    form.users[0].InUse = 0; // no prompts
    const std::string whole = form.Bytes();
    const FormBlocks blocks(whole);
    std::mt19937 random(7);
    int started = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        SCOPED_TRACE(round);
        ReportRun run(form);
        std::string damaged = whole;
        for (unsigned words = 1 + random() % 3; words > 0; --words)
            PutRecord(&damaged, PlaceIn(blocks, &random),
                      odd_words[random() % std::size(odd_words)]);
        WriteWholeFile(run.params.FormFile, damaged);
        const int code = run.Run({{{"TABLE->N", "7"}}, {{"TABLE->N", "9"}}});
        started += code == 0;
        ReleaseRefusedSessions();
    }
    EXPECT_GT(started, ROUNDS / 10);
    EXPECT_LT(started, ROUNDS);
}
