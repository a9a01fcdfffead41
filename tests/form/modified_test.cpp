#include "form/modified.h"

#include <gtest/gtest.h>

#include "tests/support/host_window.h"
#include "tests/support/test_session.h"

TEST(Modified, HostIsToldWhenTheStateReallyChanges) {
    BareSession session;
    HostWindow host;
    session->ParentWindow = host.Get();
    tessarine::SetModified(session, 0);
    EXPECT_EQ(host.Count(MESSAGE_UNMODIFIED), 0);
    tessarine::SetModified(session, 1);
    tessarine::SetModified(session, 1);
    tessarine::SetModified(session, 7);
    EXPECT_EQ(host.Count(MESSAGE_MODIFIED), 1);
    tessarine::SetModified(session, 0);
    tessarine::SetModified(session, 0);
    EXPECT_EQ(host.Count(MESSAGE_UNMODIFIED), 1);
    EXPECT_EQ(session->form.FormModified, 0u);
}

TEST(Modified, StateChangesAlsoWithoutALiveParent) {
    BareSession session;
    {
        const HostWindow gone;
        session->ParentWindow = gone.Get();
    }
    tessarine::SetModified(session, 1);
    EXPECT_EQ(session->form.FormModified, 1u);
    session->ParentWindow = nullptr;
    tessarine::SetModified(session, 0);
    EXPECT_EQ(session->form.FormModified, 0u);
}
