#include "PictureRotate.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "Arithmetic.h"

namespace vtr {

namespace {

struct Offset {
    int x;
    int y;
};

Offset Turned(Offset offset, Offset cosineAndSine) {
    const auto [cosine, sine] = cosineAndSine;
    return {offset.x * cosine - offset.y * sine, offset.x * sine + offset.y * cosine};
}

/// The pixel at offset (a, b) from the destination's centre shows the pixel at this offset from the source's.
Offset SourceOffset(int a, int b, double angle) {
    const double direction = a == 0 ? AngleOfHalfTurns(0.5) : std::atan(static_cast<double>(b) / a);
    const double radius = RoundHalfEven(std::sqrt(static_cast<double>(a) * a + static_cast<double>(b) * b));
    return {RoundToInt32(radius * std::cos(direction + angle)),
            RoundToInt32(radius * std::sin(direction + angle))};
}

/// The cosine and sine of angle, when it is a whole number of quarter turns.
std::optional<Offset> QuarterTurn(double angle) {
    if (angle == AngleOfHalfTurns(0))
        return Offset{1, 0};
    if (angle == AngleOfHalfTurns(0.5))
        return Offset{0, 1};
    if (angle == AngleOfHalfTurns(-0.5))
        return Offset{0, -1};
    if (angle == AngleOfHalfTurns(-1) || angle == AngleOfHalfTurns(1))
        return Offset{-1, 0};
    return std::nullopt;
}

/// Pixels in a straight row: the offset of the first from the picture's centre, and the step to the next.
struct Walk {
    Offset start;
    Offset step;
};

struct Range {
    int first;
    int end;
};

/// The steps i of range with which position + step * i lies within 0..size-1. step is -1, 0 or 1.
Range StepsWithin(Range range, int position, int step, int size) {
    if (step == 0)
        return position >= 0 && position < size ? range : Range{0, 0};
    const int first = step > 0 ? -position : position - size + 1;
    return {std::max(range.first, first), std::min(range.end, first + size)};
}

class Rotation {
  public:
    Rotation(const Picture &source, Picture &destination)
        : source_(source),
          destination_(destination),
          sourceCentre_{source.width / 2, source.height / 2},
          centre_{destination.width / 2, destination.height / 2} {}

    int Half() const { return std::max(centre_.x, centre_.y); }

    /// Copies the pixels of a walk, and those of the walk turned by one, two and three quarters.
    void CopyFour(Walk to, Walk from, int count) {
        constexpr Offset quarter{0, -1};
        for (int turns = 0; turns < 4; ++turns) {
            Copy(to, from, count);
            to = {Turned(to.start, quarter), Turned(to.step, quarter)};
            from = {Turned(from.start, quarter), Turned(from.step, quarter)};
        }
    }

  private:
    static Range StepsInside(Range range, const Picture &picture, Offset start, Offset step) {
        range = StepsWithin(range, start.x, step.x, picture.width);
        return StepsWithin(range, start.y, step.y, picture.height);
    }

    void Copy(Walk to, Walk from, int count) {
        to.start = {centre_.x + to.start.x, centre_.y + to.start.y};
        from.start = {sourceCentre_.x + from.start.x, sourceCentre_.y + from.start.y};
        Range steps = StepsInside({0, count}, destination_, to.start, to.step);
        steps = StepsInside(steps, source_, from.start, from.step);
        const std::ptrdiff_t toStep = Index(destination_, to.step);
        const std::ptrdiff_t fromStep = Index(source_, from.step);
        std::uint32_t *const written = destination_.pixels.data();
        const std::uint32_t *const read = source_.pixels.data();
        std::ptrdiff_t toAt = Index(destination_, to.start) + steps.first * toStep;
        std::ptrdiff_t fromAt = Index(source_, from.start) + steps.first * fromStep;
        for (int i = steps.first; i < steps.end; ++i, toAt += toStep, fromAt += fromStep)
            written[toAt] = read[fromAt];
    }

    static std::ptrdiff_t Index(const Picture &picture, Offset at) {
        return static_cast<std::ptrdiff_t>(at.y) * picture.width + at.x;
    }

    const Picture &source_;
    Picture &destination_;
    Offset sourceCentre_;
    Offset centre_;
};

}  // namespace

void RotatePicture(const Picture &source, Picture &destination, double angle,
                   const std::function<void()> &afterColumn) {
    Rotation rotation(source, destination);
    const int half = rotation.Half();
    // A quarter turn needs no SourceOffset. The rounded radius differs from the true one by less than 1/2, so
    // SourceOffset would round to the pixel (a, b) turned exactly. (The difference stays at least
    // 1 / (8 radius) below 1/2, far more than the error of the cosine.)
    const std::optional<Offset> turn = QuarterTurn(angle);
    for (int a = 0; a < half; ++a) {
        if (turn)
            rotation.CopyFour({{a, 0}, {0, 1}}, {Turned({a, 0}, *turn), Turned({0, 1}, *turn)}, half);
        else
            for (int b = 0; b < half; ++b)
                rotation.CopyFour({{a, b}, {}}, {SourceOffset(a, b, angle), {}}, 1);
        if (afterColumn)
            afterColumn();
    }
}

}  // namespace vtr
