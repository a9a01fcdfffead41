#include "designer/arrange.h"

#include <algorithm>

#include "designer/arrangement.h"
#include "designer/designer_state.h"
#include "designer/group.h"
#include "designer/item_table.h"
#include "designer/paused_painting.h"
#include "designer/relocate.h"
#include "designer/resize.h"

namespace tessarine {

namespace {

enum class Axis { ACROSS, DOWN };
enum class Point { START, MIDDLE, END }; // of an item along an axis

int StartOf(const ItemRecord &item, Axis axis) { return axis == Axis::ACROSS ? item.x : item.y; }

int LengthOf(const ItemRecord &item, Axis axis) {
    return axis == Axis::ACROSS ? item.width : item.height;
}

int PointOf(const ItemRecord &item, Axis axis, Point point) {
    const int length = LengthOf(item, axis);
    const int part = point == Point::START ? 0 : point == Point::MIDDLE ? length / 2 : length;
    return StartOf(item, axis) + part;
}

int FirstMarked(const Session *session, Axis axis) {
    return axis == Axis::ACROSS ? LeftmostMarked(session) : TopmostMarked(session);
}

int Relocate(Session *session, int row, Axis axis, int distance) {
    return axis == Axis::ACROSS ? RelocateItem(session, row, distance, 0)
                                : RelocateItem(session, row, 0, distance);
}

// The member that stays where it is, no longer marked, or NO_ROW.
int TakeAnchor(Session *session, Axis axis) {
    const int row = FirstMarked(session, axis);
    if (row != NO_ROW) session->form.Items[row].GroupMark = 0;
    return row;
}

// The anchor is the first member along the other axis.
void Align(Session *session, Axis axis, Point point) {
    if (!BeginArrangement(session)) return;
    const int anchor = TakeAnchor(session, axis == Axis::ACROSS ? Axis::DOWN : Axis::ACROSS);
    if (anchor == NO_ROW) return;
    const int place = PointOf(session->form.Items[anchor], axis, point);
    int row = TakeMarked(session);
    if (row == NO_ROW) return;
    for (; row != NO_ROW; row = TakeMarked(session))
        Relocate(session, row, axis, place - PointOf(session->form.Items[row], axis, point));
    EndArrangement(session);
}

void Space(Session *session, Axis axis) {
    if (!BeginArrangement(session)) return;
    const int anchor = TakeAnchor(session, axis);
    if (anchor == NO_ROW) return;
    int place = PointOf(session->form.Items[anchor], axis, Point::END);
    int row = TakeAnchor(session, axis);
    if (row == NO_ROW) return;
    const int gap = std::max(StartOf(session->form.Items[row], axis) - place, 0);
    for (; row != NO_ROW; row = TakeAnchor(session, axis)) {
        const int distance = place + gap - StartOf(session->form.Items[row], axis);
        const int moved = Relocate(session, row, axis, distance);
        place = PointOf(session->form.Items[moved], axis, Point::END);
    }
    EndArrangement(session);
}

RECT WithLength(const ItemRecord &item, Axis axis, int length) {
    const int width = axis == Axis::ACROSS ? length : item.width;
    const int height = axis == Axis::DOWN ? length : item.height;
    return {item.x, item.y, item.x + width, item.y + height};
}

void SizeEven(Session *session, Axis axis) {
    if (!BeginArrangement(session)) return;
    const int anchor = TakeAnchor(session, Axis::ACROSS);
    if (anchor == NO_ROW) return;
    const int length = LengthOf(session->form.Items[anchor], axis);
    int row = TakeMarked(session);
    if (row == NO_ROW) return;
    {
        const PausedPainting paused(session);
        for (; row != NO_ROW; row = TakeMarked(session)) {
            session->form.SelectedItem = row;
            DesignerOf(session).FocusRect = WithLength(session->form.Items[row], axis, length);
            SizeItem(session);
        }
    }
    EndArrangement(session);
}

} // namespace

void AlignTop(Session *session) { Align(session, Axis::DOWN, Point::START); }
void AlignBottom(Session *session) { Align(session, Axis::DOWN, Point::END); }
void AlignMiddle(Session *session) { Align(session, Axis::DOWN, Point::MIDDLE); }
void AlignLeft(Session *session) { Align(session, Axis::ACROSS, Point::START); }
void AlignRight(Session *session) { Align(session, Axis::ACROSS, Point::END); }
void AlignCenter(Session *session) { Align(session, Axis::ACROSS, Point::MIDDLE); }
void SpaceAcross(Session *session) { Space(session, Axis::ACROSS); }
void SpaceDown(Session *session) { Space(session, Axis::DOWN); }
void SizeEvenWidth(Session *session) { SizeEven(session, Axis::ACROSS); }
void SizeEvenHeight(Session *session) { SizeEven(session, Axis::DOWN); }

} // namespace tessarine
