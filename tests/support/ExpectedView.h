#pragma once

namespace vtr {

/// The state of the view computed a second time, in fractions of whole numbers.
class ExpectedView {
  public:
    int zoom = 0, centerX = 0, centerY = 0;
    int h = 0, v = 0, hMax = 0, vMax = 0, hLarge = 0, vLarge = 0;
    int left = 0, top = 0, width = 0, height = 0;
    bool shown = false, in = true, out = true;
    int checked = 0;

    void Load() { Whole(); }
    void Whole() {
        shown = false;
        zoom = 1;
        LargeChanges();
        out = false;
        in = true;
        checked = 100;
        VMaximum(0);
        HMaximum(0);
        centerX = 320;
        centerY = 160;
    }
    void Fixed(int factor) {
        zoom = factor;
        in = out = true;
        checked = factor * 100;
        Rezoom();
    }
    void In() {
        ++zoom;
        out = true;
        if (zoom == 100)
            in = false;
        checked = 0;
        Rezoom();
    }
    void Out() {
        --zoom;
        in = true;
        if (zoom == 1)
            out = false;
        checked = 0;
        Rezoom();
    }
    void At(int steps, int x, int y) {
        const int before = zoom;
        const int mapX = h + x / zoom;
        const int mapY = v + y / zoom;
        for (; steps > 0 && in; --steps)
            In();
        for (; steps < 0 && out; ++steps)
            Out();
        if (zoom == before)
            return;
        ScrollH(mapX - x / zoom);
        ScrollV(mapY - y / zoom);
        centerX = 320 / zoom + h;
        centerY = 160 / zoom + v;
    }
    void ScrollH(int wanted) {
        const int held = wanted < 0 ? 0 : wanted > hMax ? hMax : wanted;
        if (held == h)
            return;
        h = held;
        Rectangle();
        if (!suspended_)
            centerX = 320 / zoom + h;
    }
    void ScrollV(int wanted) {
        const int held = wanted < 0 ? 0 : wanted > vMax ? vMax : wanted;
        if (held == v)
            return;
        v = held;
        Rectangle();
        if (!suspended_)
            centerY = 160 / zoom + v;
    }

  private:
    /// numerator / denominator to the nearest, halves to the even, for a denominator above 0.
    static int Rounded(int numerator, int denominator) {
        int whole = numerator / denominator;
        while (whole * denominator > numerator)
            --whole;
        const int twiceRest = 2 * (numerator - whole * denominator);
        if (twiceRest > denominator || (twiceRest == denominator && whole % 2 != 0))
            ++whole;
        return whole;
    }
    void LargeChanges() {
        vLarge = Rounded(320, zoom);
        hLarge = Rounded(640, zoom);
    }
    void Rectangle() {
        left = Rounded(h, 4);
        top = Rounded(v, 4);
        width = Rounded(640, zoom * 4);
        height = Rounded(320, zoom * 4);
    }
    void HMaximum(int maximum) {
        hMax = maximum;
        ScrollH(h);
    }
    void VMaximum(int maximum) {
        vMax = maximum;
        ScrollV(v);
    }
    void Rezoom() {
        LargeChanges();
        shown = true;
        Rectangle();
        VMaximum(Rounded(320 * zoom - 320, zoom));
        HMaximum(Rounded(640 * zoom - 640, zoom));
        suspended_ = true;
        ScrollH(zoom == 1 ? 0 : Rounded(centerX * zoom - 320, zoom));
        ScrollV(zoom == 1 ? 0 : Rounded(centerY * zoom - 160, zoom));
        suspended_ = false;
    }

    bool suspended_ = false;
};

}  // namespace vtr
