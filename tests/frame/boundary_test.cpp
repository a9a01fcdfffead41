#include "frame/boundary.h"

#include "frame/message_box.h"
#include "frame/session_table.h"
#include "tests/support/entry_code.h"
#include "tests/support/message_boxes.h"
#include "tests/support/test_session.h"

#include <gtest/gtest.h>

using namespace tessarine;

namespace {

int released;

// A session that notes its release and is freed by it.
Session *OpenReleasable() {
    Session *session = nullptr;
    EXPECT_EQ(OpenSession(&session), CODE_DONE);
    session->EndSession = [](Session *ended) {
        ++released;
        FreeSession(ended);
    };
    released = 0;
    return session;
}

// What a callback leaves behind: caught at its own boundary.
void FailInACallback(Session *session, int code) {
    Guarded(session, 0, [&]() -> int { FatalError(session, "", code); });
}

} // namespace

TEST(Boundary, FailureBelowIsTheResultAndTheSessionStands) {
    BareSession session;
    EXPECT_EQ(EntryCode(session, [&] { FatalError(session, "", 7); }), 7);
    EXPECT_EQ(session->UnwindPoint, 0);
    EXPECT_EQ(EntryCode(session, [] {}), 0);
}

TEST(Boundary, LackOfMemoryIsToldAndGivesItsCode) {
    MessageBoxes boxes;
    BareSession session;
    EXPECT_EQ(EntryCode(session, [] { throw std::bad_alloc(); }), CODE_MEMORY);
    EXPECT_EQ(boxes.Log(), (std::vector<BoxRecord>{{"Fatal Error", "Ran Out of Memory", {IDOK}}}));
    EXPECT_EQ(Guarded(session, -1, []() -> int { throw std::bad_alloc(); }), -1);
    EXPECT_EQ(session->ErrorCode, CODE_MEMORY);
}

TEST(Boundary, FailureThatNobodyRaisedIsTheResultOfItsOwnCallAndOfNoLaterOne) {
    BareSession session;
    EXPECT_EQ(EntryCode(session, [&] { FailInACallback(session, 9); }), 9);
    EXPECT_EQ(EntryCode(session, [] {}), 0);
}

TEST(Boundary, FailureOfTheOuterCallIsNotTheInnerOnes) {
    BareSession session;
    int inner = -1;
    const int outer = EntryCode(session, [&] {
        FailInACallback(session, 9);
        inner = EntryCode(session, [] {});
    });
    EXPECT_EQ(inner, 0);
    EXPECT_EQ(outer, 9);
}

TEST(Boundary, FailureUnderABoxUnwindsBehindIt) {
    MessageBoxes boxes;
    BareSession session;
    bool went_on = false;
    boxes.OnDialog("Wait", [&](DialogDriver dialog) {
        FailInACallback(session, 9);
        dialog.Press(IDOK);
    });
    EXPECT_EQ(EntryCode(session,
                        [&] {
                            ShowSessionBox(session, "a moment", "Wait");
                            went_on = true;
                        }),
              9);
    EXPECT_FALSE(went_on);
}

TEST(Boundary, SessionWhoseEndIsWantedIsReleasedWhenTheOutermostCallReturns) {
    Session *session = OpenReleasable();
    EntryCode(session, [&] {
        EntryCode(session, [&] { WantEnd(session); });
        EXPECT_EQ(released, 0);
        EXPECT_TRUE(SessionStands(session));
    });
    EXPECT_EQ(released, 1);
    EXPECT_FALSE(SessionStands(session));
}

TEST(Boundary, SessionInsideAMessageIsReleasedBehindIt) {
    Session *session = OpenReleasable();
    {
        const InMessage outer(session);
        {
            const InMessage inner(session);
            EntryCode(session, [&] { WantEnd(session); });
        }
        EXPECT_EQ(released, 0);
    }
    EXPECT_EQ(released, 1);
}

TEST(Boundary, CallsInTheReleaseItselfReleaseNothingTwice) {
    Session *session = OpenReleasable();
    session->EndSession = [](Session *ended) {
        ++released;
        EntryCode(ended, [] {});
        FreeSession(ended);
    };
    EntryCode(session, [&] { WantEnd(session); });
    EXPECT_EQ(released, 1);
}

TEST(Boundary, LiveSessionsAreThoseOfAllKinds) {
    Session *designer = OpenReleasable();
    BareSession run;
    EXPECT_TRUE(SessionStands(designer));
    EXPECT_TRUE(SessionStands(run));
    EXPECT_FALSE(SessionStands(nullptr));
    EXPECT_EQ(GetSessionPointer(nullptr, designer->SessionId), nullptr); // it has no slot
    FreeSession(designer);
    EXPECT_FALSE(SessionStands(designer));
    EXPECT_TRUE(SessionStands(run));
}
