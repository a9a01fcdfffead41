#include "designer/designer_state.h"

#include <gtest/gtest.h>

#include "frame/memory.h"
#include "tests/support/test_session.h"

using namespace tessarine;

TEST(DesignerState, IsMadeIdleWithAGridAtItsFirstUse) {
    const int blocks = LiveBlocks();
    {
        BareSession session;
        EXPECT_EQ(session->designer, nullptr);
        EXPECT_EQ(DesignerOf(session).PendingCommand, -1);
        EXPECT_EQ(DesignerOf(session).SnapToGrid, 1u);
        EXPECT_EQ(DesignerOf(session).GridSize, 12);
        EXPECT_EQ(&DesignerOf(session), session->designer);
        session->DropDesigner(session);
        EXPECT_EQ(session->designer, nullptr);
    }
    EXPECT_EQ(LiveBlocks(), blocks);
}

TEST(DesignerState, ResetEndsACommandAndKeepsTheExpressionMode) {
    BareSession session;
    ResetDesigner(session); // none yet
    EXPECT_EQ(session->designer, nullptr);
    DesignerOf(session).PendingCommand = 608;
    DesignerOf(session).GridSize = 50;
    DesignerOf(session).ExpressionMode = 2;
    ResetDesigner(session);
    EXPECT_EQ(DesignerOf(session).PendingCommand, -1);
    EXPECT_EQ(DesignerOf(session).GridSize, 12);
    EXPECT_EQ(DesignerOf(session).ExpressionMode, 2);
    session->DropDesigner(session);
}
