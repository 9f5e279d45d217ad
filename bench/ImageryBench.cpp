// How fast tile pictures are read, compared with the other decoders that are installed, and how fast they are
// turned, compared with the trigonometry that defines the turn.

#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#ifdef VTR_HAS_AVCODEC
extern "C" {
#include <libavcodec/avcodec.h>
}
#endif
#ifdef VTR_HAS_SDL2_IMAGE
#include <SDL_image.h>
#endif

#include "../tests/imagery/PlainRotation.h"
#include "Comparison.h"
#include "PictureRotate.h"
#include "modPcxReader.h"

namespace {

using namespace vtr;

constexpr int edge = 256;
constexpr int runs = 3000;

struct Sample {
    const char *name;
    double wanted;  ///< how many times as fast as the faster of the other decoders
    std::vector<std::uint8_t> indexes;
};

std::vector<std::uint8_t> IndexesOf(const std::function<unsigned long(int x, int y)> &paint) {
    std::vector<std::uint8_t> indexes;
    for (int y = 0; y < edge; ++y)
        for (int x = 0; x < edge; ++x)
            indexes.push_back(static_cast<std::uint8_t>(paint(x, y) % 256));
    return indexes;
}

/// Fields of 8 to 40 pixels in sixteen shades each, a speckle on one pixel in eight and a road across.
std::vector<std::uint8_t> MapLike() {
    std::mt19937 random(3);
    std::vector<unsigned long> fields(4096);
    for (unsigned long &field : fields)
        field = random() % 240;
    return IndexesOf([&](int x, int y) {
        if (std::abs(x - y / 2 - 60) < 4)
            return 250UL;
        const int field = (y + x / 9) / 20 * 64 + (x + y / 7) / 24;
        return fields.at(static_cast<std::size_t>(field)) + (random() % 8 == 0 ? random() % 16 : 0);
    });
}

/// A PCX file of 256 colours, run-length encoded line by line.
Bytes Encoded(const std::vector<std::uint8_t> &indexes) {
    Bytes file(128);
    file[0] = 10;
    file[1] = 5;
    file[2] = 1;
    file[3] = 8;
    PutUint16(file, 8, edge - 1);
    PutUint16(file, 10, edge - 1);
    PutUint16(file, 12, 72);
    PutUint16(file, 14, 72);
    file[65] = 1;
    PutUint16(file, 66, edge);
    for (std::size_t line = 0; line < indexes.size(); line += edge) {
        for (std::size_t x = 0; x < edge;) {
            const std::uint8_t value = indexes[line + x];
            std::size_t count = 1;
            while (count < 63 && x + count < edge && indexes[line + x + count] == value)
                ++count;
            if (count > 1 || value >= 192)
                file.push_back(static_cast<std::uint8_t>(192 + count));
            file.push_back(value);
            x += count;
        }
    }
    file.push_back(12);
    for (int i = 0; i < 256; ++i)
        for (const int part : {i, 255 - i, i * 5 % 256})
            file.push_back(static_cast<std::uint8_t>(part));
    return file;
}

/// A decoder of another library. It fills indexes with the palette entries it finds.
struct Rival {
    const char *name;
    std::function<void(const Bytes &file, Bytes *indexes)> decode;
};

[[maybe_unused]] void AppendRows(const std::uint8_t *pixels, std::ptrdiff_t pitch, Bytes *indexes) {
    if (indexes != nullptr)
        for (std::ptrdiff_t y = 0; y < edge; ++y)
            indexes->insert(indexes->end(), pixels + y * pitch, pixels + y * pitch + edge);
}

#ifdef VTR_HAS_AVCODEC
Rival Avcodec() {
    const AVCodec *codec = avcodec_find_decoder(AV_CODEC_ID_PCX);
    const std::shared_ptr<AVCodecContext> context(avcodec_alloc_context3(codec),
                                                  [](AVCodecContext *held) { avcodec_free_context(&held); });
    const std::shared_ptr<AVFrame> frame(av_frame_alloc(), [](AVFrame *held) { av_frame_free(&held); });
    const std::shared_ptr<AVPacket> packet(av_packet_alloc(), [](AVPacket *held) { av_packet_free(&held); });
    if (codec == nullptr || avcodec_open2(context.get(), codec, nullptr) < 0)
        return {};
    return {"libavcodec", [=](const Bytes &file, Bytes *indexes) {
                packet->data = const_cast<std::uint8_t *>(file.data());
                packet->size = static_cast<int>(file.size()) - AV_INPUT_BUFFER_PADDING_SIZE;
                if (avcodec_send_packet(context.get(), packet.get()) < 0 ||
                    avcodec_receive_frame(context.get(), frame.get()) < 0)
                    std::abort();
                AppendRows(frame->data[0], frame->linesize[0], indexes);
                av_frame_unref(frame.get());
            }};
}
#endif

#ifdef VTR_HAS_SDL2_IMAGE
Rival SdlImage() {
    return {"SDL2_image", [](const Bytes &file, Bytes *indexes) {
                SDL_RWops *stream = SDL_RWFromConstMem(file.data(), static_cast<int>(file.size()));
                SDL_Surface *surface = IMG_LoadPCX_RW(stream);
                if (surface == nullptr || surface->format->BytesPerPixel != 1)
                    std::abort();
                AppendRows(static_cast<const std::uint8_t *>(surface->pixels), surface->pitch, indexes);
                SDL_FreeSurface(surface);
                SDL_RWclose(stream);
            }};
}
#endif

std::vector<Rival> Rivals() {
    std::vector<Rival> rivals;
#ifdef VTR_HAS_AVCODEC
    rivals.push_back(Avcodec());
#endif
#ifdef VTR_HAS_SDL2_IMAGE
    rivals.push_back(SdlImage());
#endif
    return rivals;
}

std::size_t PixelsDecoded(const Bytes &file) {
    return std::get<PcxPicture>(DecodePcx(file)).picture.pixels.size();
}

/// Returns false when a decoder does not find the sample's pixels.
bool CompareDecoders(const Sample &sample, const std::vector<Rival> &rivals) {
    const Bytes file = Encoded(sample.indexes);
    const PcxResult result = DecodePcx(file);
    const auto &picture = std::get<PcxPicture>(result);
    for (std::size_t i = 0; i < sample.indexes.size(); ++i)
        if (picture.picture.pixels[i] != (0xFF000000 | picture.palette->colourTable[sample.indexes[i]]))
            return false;
    for (const Rival &rival : rivals) {
        Bytes indexes;
#ifdef VTR_HAS_AVCODEC
        Bytes padded = file;
        padded.resize(file.size() + AV_INPUT_BUFFER_PADDING_SIZE);
        const Bytes &input = std::string(rival.name) == "libavcodec" ? padded : file;
#else
        const Bytes &input = file;
#endif
        rival.decode(input, &indexes);
        if (indexes != sample.indexes)
            return false;
        std::size_t count = 0;
        const Comparison times = Compare(
            runs, [&] { count += PixelsDecoded(file); }, [&] { rival.decode(input, nullptr); });
        if (count != sample.indexes.size() * runs)
            return false;
        ReportAtLeast(sample.name, times, rival.name, sample.wanted);
    }
    return true;
}

bool CompareTurns() {
    Picture source{edge, edge, {}};
    for (std::uint32_t i = 0; i < edge * edge; ++i)
        source.pixels.push_back(0xFF000000 | i);
    for (const double rotation : {-0.5, -1.0, 0.5}) {
        const double angle = AngleOfHalfTurns(rotation);
        Picture ours = source;
        Picture plain = source;
        const Comparison times = Compare(
            100, [&] { RotatePicture(source, ours, angle); }, [&] { RotatePlainly(source, plain, angle); });
        if (ours.pixels != plain.pixels)
            return false;
        const std::string name = "turn by " + std::to_string(rotation) + " half turns";
        ReportAtLeast(name.c_str(), times, "plainly", 5);
    }
    return true;
}

}  // namespace

int main() {
    std::mt19937 random(7);
    const std::vector<Sample> samples = {
        {"pcx, flat", 2, IndexesOf([](int, int y) { return y < 100 ? 40UL : 200UL; })},
        {"pcx, map-like", 2, MapLike()},
        {"pcx, noisy", 1, IndexesOf([&random](int, int) { return random(); })}};
    const std::vector<Rival> rivals = Rivals();
    bool same = CompareTurns();
    for (const Sample &sample : samples)
        same = CompareDecoders(sample, rivals) && same;
    if (rivals.empty())
        std::puts("pcx: neither libavcodec nor SDL2_image is installed, nothing to compare with");
    if (!same)
        std::puts("the pixels differ");
    return same ? 0 : 1;
}
