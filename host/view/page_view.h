// Which part of which page shows, at what size: the viewer's state without its window.
#pragma once

#include <windows.h>

#include "host/view/report_reader.h"

enum class Fit { NONE, PAGE, WIDTH };

class PageView {
public:
    // pixels_per_inch: of the screen, which is a zoom of 1.
    PageView(const PaperSize &paper, int page_count, double pixels_per_inch);

    int Page() const { return page_; }
    int PageCount() const { return page_count_; }
    double Zoom() const { return zoom_; }
    Fit Fitting() const { return fit_; }
    double PixelsPerInch() const { return zoom_ * pixels_per_inch_; }
    // The sheet's place in the client area, in pixels: centred where there is room.
    RECT Sheet() const;

    // The client area in pixels; keeps a fit.
    void Resize(SIZE client);
    void SetFit(Fit fit);
    // Sets the zoom, within ZOOM_LEAST and ZOOM_MOST, and keeps what shows at anchor there.
    void SetZoom(double zoom, POINT anchor);
    // The next larger or smaller of the usual zooms, about the middle of what shows.
    void StepZoom(int direction);
    void StepZoom(int direction, POINT anchor);

    // Goes to the top of a page, from 1; forced into the report.
    void GoTo(int page);
    // Scrolls by pixels. Down past the end of a page comes the top of the next one; up past its
    // top, the end of the one before.
    void ScrollBy(int x, int y);
    // Scrolls within the page alone.
    void DragBy(int y);
    // By nearly a client area, so that a line stays in view.
    void Turn(int direction);

    // Scroll bars: the vertical one runs through the whole report.
    SCROLLINFO Vertical() const;
    SCROLLINFO Horizontal() const;
    void ScrollToVertical(int position);
    void ScrollToHorizontal(int position);

    static constexpr double ZOOM_LEAST = 0.1;
    static constexpr double ZOOM_MOST = 8.0;

private:
    SIZE Extent() const; // of the sheet with its margins
    void ApplyFit();
    void Clamp();

    PaperSize paper_;
    int page_count_;
    double pixels_per_inch_;
    int page_ = 1;
    double zoom_ = 1.0;
    Fit fit_ = Fit::PAGE;
    SIZE client_{1, 1};
    POINT scroll_{0, 0}; // of the extent's top left, in pixels
};
