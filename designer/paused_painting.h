// While one stands nothing is painted, so that the user sees the outcome alone.
#pragma once

#include "state/session.h"

namespace tessarine {

class PausedPainting {
public:
    explicit PausedPainting(Session *session)
        : session_(session), enabled_(session->view.PaintEnabled) {
        session->view.PaintEnabled = 0;
    }
    ~PausedPainting() { session_->view.PaintEnabled = enabled_; }
    PausedPainting(const PausedPainting &) = delete;
    PausedPainting &operator=(const PausedPainting &) = delete;

private:
    Session *session_;
    uint32_t enabled_;
};

} // namespace tessarine
