#include "soak/SoakPlan.h"

#include <algorithm>

namespace {

struct DeedRow {
    SoakDeed deed;
    const char* name;
    std::uint32_t weight;
};

// What stands over the window keeps most of the rest from the program, so it is dismissed often.
constexpr std::array<DeedRow, 23> deeds{{
    {SoakDeed::Press, "press", 200},  {SoakDeed::Enter, "enter", 50},      {SoakDeed::Type, "type", 70},
    {SoakDeed::PickDate, "date", 25}, {SoakDeed::Lamp, "lamp", 50},        {SoakDeed::Menu, "menu", 60},
    {SoakDeed::Dialog, "dialog", 25}, {SoakDeed::Dismiss, "dismiss", 170}, {SoakDeed::Key, "key", 60},
    {SoakDeed::Wander, "wander", 60}, {SoakDeed::Move, "move", 20},        {SoakDeed::Minimise, "minimise", 12},
    {SoakDeed::Steal, "steal", 20},   {SoakDeed::Fault, "fault", 70},      {SoakDeed::Heal, "heal", 25},
    {SoakDeed::Count, "count", 80},   {SoakDeed::Flood, "flood", 12},      {SoakDeed::Counters, "counters", 12},
    {SoakDeed::Pull, "pull", 6},      {SoakDeed::Plug, "plug", 15},        {SoakDeed::Wait, "wait", 60},
    {SoakDeed::Poll, "poll", 60},     {SoakDeed::End, "end", 1},
}};

constexpr std::uint32_t allWeights = [] {
    std::uint32_t sum = 0;
    for (const DeedRow& row : deeds) sum += row.weight;
    return sum;
}();

} // namespace

SoakAction CSoakPlan::Next() {
    std::uint32_t drawn = random.Below(allWeights);
    const auto* const row = std::ranges::find_if(deeds, [&](const DeedRow& each) {
        if (drawn < each.weight) return true;
        drawn -= each.weight;
        return false;
    });
    SoakAction action{row->deed, {}};
    for (std::uint32_t& number : action.numbers) number = random.Below(65536);
    return action;
}

std::string TextOfAction(const SoakAction& action) {
    std::string text = std::ranges::find(deeds, action.deed, &DeedRow::deed)->name;
    for (const std::uint32_t number : action.numbers) text += " " + std::to_string(number);
    return text;
}
