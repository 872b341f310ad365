// Which part of the whole run is seen.
#pragma once

namespace zps {

// From one place to another, both in seconds, within what there is. While it follows, it goes along
// with the newest sample: by a little more than it must, so that most samples move nothing. It does
// so while its end is in sight, until it is told not to.
class CurveWindow {
  public:
    CurveWindow() { ShowAll(); }

    double Low() const { return From; }
    double High() const { return To; }
    double Width() const { return To - From; }
    bool Follows() const { return Following; }
    bool ShowsAll() const { return All; }

    // The newest sample stands at `end`, 0 without samples. Whether something else is seen now.
    bool GrowTo(double end);
    // Goes to the newest sample and along with it from now on, as wide as it is.
    void Follow();
    void Stay() { All = Following = false; }
    // From the first sample to the newest, and along with it.
    void ShowAll();
    // Becomes so many times as wide; what stands at `about` stays there if it can. A width of a
    // second is the least; all there is is the most.
    void Zoom(double factor, double about);
    // To later samples, so many seconds.
    void Move(double by);
    // As little as `place` needs to be seen, with some room around.
    void Reveal(double place);

  private:
    double Extent() const;
    void Put(double low, double width);

    double From = 0;
    double To = 0;
    double End = 0;
    bool All = true;
    bool Following = true;
};

}  // namespace zps
