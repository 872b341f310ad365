#include "power/log/run_curve_window.h"

#include <algorithm>

namespace zps {

namespace {

constexpr double LeastWidth = 1;     // s
constexpr double LeastExtent = 3.3;  // s, what the last twenty samples take
constexpr double Ahead = 0.04;       // of the width

}  // namespace

double CurveWindow::Extent() const {
    return std::max(End, LeastExtent) * (1 + Ahead);
}

void CurveWindow::Put(double low, double width) {
    if (width >= std::max(End, LeastExtent)) return ShowAll();
    width = std::max(width, LeastWidth);
    From = std::clamp(low, 0.0, std::max(0.0, End + Ahead * width - width));
    To = From + width;
    All = false;
    Following = To >= End;
}

bool CurveWindow::GrowTo(double end) {
    const bool fewer = end < End;
    End = end;
    if (fewer) All = Following = true;
    if (!fewer && (!Following || End <= To)) return false;
    All ? ShowAll() : Follow();
    return true;
}

void CurveWindow::Follow() {
    Put(End, Width());
}

void CurveWindow::ShowAll() {
    From = 0;
    To = Extent();
    All = Following = true;
}

void CurveWindow::Zoom(double factor, double about) {
    const double width = std::max(Width() * factor, LeastWidth);
    const double share = (about - From) / Width();
    Put(about - share * width, width);
}

void CurveWindow::Move(double by) {
    Put(From + by, Width());
}

void CurveWindow::Reveal(double place) {
    const double room = 0.1 * Width();
    if (place < From) Put(place - room, Width());
    if (place > To) Put(place + room - Width(), Width());
}

}  // namespace zps
