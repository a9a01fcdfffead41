// A designer whose pointer is led over the form by what its window is told.
#pragma once

#include <array>

#include "designer/designer_state.h"
#include "tests/support/designer_session.h"

using Edges = std::array<LONG, 4>; // left, top, right, bottom

Edges EdgesOf(const RECT &rectangle);

class PointerSession : public DesignerSession {
protected:
    // Two sections in a window, without the grid.
    void SetUp() override;
    void StartIn(int width, int height); // pixels

    // At the pixel nearest to a place of the form.
    void Down(int x, int y, WPARAM keys = MK_LBUTTON);
    void Over(int x, int y, WPARAM keys = MK_LBUTTON);
    void Up(int x, int y);
    void OverRulers(WPARAM keys = MK_LBUTTON);
    POINT Seen(int x, int y) const; // the place that this pixel stands for
    LPARAM Position(int x, int y) const;

    tessarine::Designer &State() const { return tessarine::DesignerOf(session); }
    Edges Focus() const { return EdgesOf(State().FocusRect); }
    Edges PlaceOf(const std::string &label) const;
    ItemRecord &Group() const;
    int SelectGroup(int left, int top, int right, int bottom); // its row
    // Whether nothing is in progress and the next move only chooses the cursor.
    bool Hovers() const;
    bool PointerStandsAt(int x, int y) const; // on the screen, over a place of the form
};
