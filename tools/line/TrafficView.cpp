// Pieces of traffic put together.
#include "line/TrafficView.h"

#include <array>
#include <cstdio>

namespace {

// Longer than an adapter holds bytes back, shorter than the pause between two requests.
constexpr LineTime silence(30'000);

// Bytes; a flood without a pause is cut.
constexpr std::size_t longestText = 256;

} // namespace

void CTrafficView::Show(bool shown) {
    isShown = shown;
    begun.clear();
}

std::optional<std::string> CTrafficView::Add(WireDirection direction, std::span<const std::uint8_t> bytes,
                                             LineTime now) {
    if (!isShown || bytes.empty()) return std::nullopt;
    auto ended = direction == way && begun.size() < longestText ? std::nullopt : Take();
    way = direction;
    if (begun.empty()) first = now;
    last = now;
    begun.insert(begun.end(), bytes.begin(), bytes.end());
    return ended;
}

std::optional<std::string> CTrafficView::TakeFinished(LineTime now) {
    const auto due = NextDue();
    return due && *due <= now ? Take() : std::nullopt;
}

std::optional<LineTime> CTrafficView::NextDue() const {
    if (begun.empty()) return std::nullopt;
    return last + silence;
}

std::optional<std::string> CTrafficView::Take() {
    if (begun.empty()) return std::nullopt;
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(first - origin).count();
    std::array<char, 40> head{};
    std::snprintf(head.data(), head.size(), "%lld.%03d %c", static_cast<long long>(passed / 1000),
                  static_cast<int>(passed % 1000), static_cast<char>(way));
    std::string text = head.data() + HexOfBytes(begun);
    begun.clear();
    return text;
}
