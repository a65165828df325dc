// Message maps: constant tables that tie messages, commands and notifications to member functions.
//
//     const CMessageMap& CPanel::ClassMap() {
//         static constexpr std::array entries{On<WM_TIMER, &CPanel::OnTimer>(),
//                                             OnCommandId<1024, &CPanel::OnStartStop>(),
//                                             OnControl<EN_CHANGE, 1017, &CPanel::OnSensitivityChange>()};
//         static const CMessageMap map{&CDialog::ClassMap(), entries};
//         return map;
//     }
//
// A handler's signature is checked when the table is compiled. A table chains to that of the base class, which is asked
// when it has no entry itself; the first entry that fits wins.
#pragma once

#include <array>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>

#include <windows.h>

#include "framework/MessageTraits.h"

class CDC;

// What may receive commands: windows and the application object.
class CCommandTarget;

enum class MapKind : unsigned char {
    Message,        // `code` is the message
    Color,          // any WM_CTLCOLOR message
    Command,        // `code` is the notification code of WM_COMMAND; 0 also for menus
    ReflectCommand, // a WM_COMMAND of this control, sent back to it by its parent
    ReflectColor,   // a WM_CTLCOLOR message of this control, sent back likewise
};

struct MapArguments {
    UINT id;   // of the control or command, where there is one
    UINT code; // the message or notification code
    WPARAM wParam;
    LPARAM lParam;
};

// Gives false when the handler lets the message go on; else `result` holds the message's result.
using MapInvoke = bool (*)(CCommandTarget& target, const MapArguments& arguments, LRESULT& result);

struct MapEntry {
    MapKind kind;
    UINT code;
    UINT firstId; // both 0 where ids play no part
    UINT lastId;
    MapInvoke invoke;

    bool Fits(MapKind wanted, const MapArguments& arguments) const {
        if (kind != wanted) return false;
        const bool codeFits = code == arguments.code || kind == MapKind::Color || kind == MapKind::ReflectColor;
        return codeFits && (lastId == 0 || (arguments.id >= firstId && arguments.id <= lastId));
    }
};

class CMessageMap {
public:
    template <std::size_t count>
    constexpr CMessageMap(const CMessageMap* baseMap, const std::array<MapEntry, count>& table)
        : base(baseMap), entries(table) {}

    // The first entry that fits, in this table or, after it, in those of the base classes; null if there is none.
    const MapEntry* Find(MapKind kind, const MapArguments& arguments) const {
        for (const CMessageMap* map = this; map != nullptr; map = map->base) {
            for (const MapEntry& entry : map->entries) {
                if (entry.Fits(kind, arguments)) return &entry;
            }
        }
        return nullptr;
    }

private:
    const CMessageMap* base;
    std::span<const MapEntry> entries;
};

class CCommandTarget {
public:
    virtual ~CCommandTarget() = default;

    static const CMessageMap& ClassMap();
    virtual const CMessageMap& GetMessageMap() const { return ClassMap(); }

    // Offers a command or a control's notification to this target; true if it was handled. Dialogs pass menu commands
    // on to their parent and to the application.
    virtual bool OnCmdMsg(UINT id, UINT code);

protected:
    CCommandTarget() = default;
    bool Dispatch(MapKind kind, const MapArguments& arguments, LRESULT& result);
};

namespace message_map_detail {

template <class Pointer>
struct Member;
template <class Class_, class Result_, class... Arguments_>
struct Member<Result_ (Class_::*)(Arguments_...)> {
    using Class = Class_;
    using Result = Result_;
    using Arguments = std::tuple<Arguments_...>;
};

template <class Value>
LRESULT ToResult(Value value) {
    if constexpr (std::is_pointer_v<Value>) {
        return reinterpret_cast<LRESULT>(value);
    } else {
        return static_cast<LRESULT>(value);
    }
}

template <auto handler, class... Arguments>
LRESULT Call(CCommandTarget& target, Arguments&&... arguments) {
    using Info = Member<decltype(handler)>;
    auto& object = static_cast<typename Info::Class&>(target);
    if constexpr (std::is_void_v<typename Info::Result>) {
        (object.*handler)(std::forward<Arguments>(arguments)...);
        return 0;
    } else {
        return ToResult((object.*handler)(std::forward<Arguments>(arguments)...));
    }
}

template <auto handler, class Tuple, std::size_t... index>
LRESULT CallTuple(CCommandTarget& target, const Tuple& arguments, std::index_sequence<index...>) {
    return Call<handler>(target, std::get<index>(arguments)...);
}

// For reflected messages: a handler that gives bool tells whether the parent is kept from handling it as well.
template <auto handler, class... Arguments>
bool CallReflected(CCommandTarget& target, Arguments&&... arguments) {
    using Info = Member<decltype(handler)>;
    const LRESULT handled = Call<handler>(target, std::forward<Arguments>(arguments)...);
    return std::is_void_v<typename Info::Result> || handled != 0;
}

HBRUSH CallColor(CCommandTarget& target, const MapArguments& arguments,
                 HBRUSH (*call)(CCommandTarget&, CDC&, CWnd*, UINT));

template <auto handler, class Result, class... Expected>
constexpr void RequireSignature() {
    using Info = Member<decltype(handler)>;
    static_assert(std::is_same_v<typename Info::Result, Result>, "the handler's result type doesn't fit the message");
    static_assert(std::is_same_v<typename Info::Arguments, std::tuple<Expected...>>,
                  "the handler's arguments don't fit the message");
}

} // namespace message_map_detail

// A window message, cracked as MessageTraits says.
template <UINT message, auto handler>
constexpr MapEntry On() {
    using Traits = MessageTraits<message>;
    using Info = message_map_detail::Member<decltype(handler)>;
    static_assert(std::is_same_v<typename Info::Result, typename Traits::Result>,
                  "the handler's result type doesn't fit the message");
    static_assert(std::is_same_v<typename Info::Arguments, decltype(Traits::Crack(0, 0))>,
                  "the handler's arguments don't fit the message");
    return {MapKind::Message, message, 0, 0, [](CCommandTarget& target, const MapArguments& given, LRESULT& result) {
                const auto cracked = Traits::Crack(given.wParam, given.lParam);
                result = message_map_detail::CallTuple<handler>(
                    target, cracked, std::make_index_sequence<std::tuple_size_v<decltype(Traits::Crack(0, 0))>>());
                return true;
            }};
}

// A message of the program's own, uncracked: LRESULT (WPARAM, LPARAM).
template <UINT message, auto handler>
constexpr MapEntry OnMessage() {
    message_map_detail::RequireSignature<handler, LRESULT, WPARAM, LPARAM>();
    return {MapKind::Message, message, 0, 0, [](CCommandTarget& target, const MapArguments& given, LRESULT& result) {
                result = message_map_detail::Call<handler>(target, given.wParam, given.lParam);
                return true;
            }};
}

// A control's notification by WM_COMMAND: void ().
template <UINT code, UINT id, auto handler>
constexpr MapEntry OnControl() {
    message_map_detail::RequireSignature<handler, void>();
    return {MapKind::Command, code, id, id, [](CCommandTarget& target, const MapArguments&, LRESULT& result) {
                result = message_map_detail::Call<handler>(target);
                return true;
            }};
}

// A menu command, or a click on a button: void ().
template <UINT id, auto handler>
constexpr MapEntry OnCommandId() {
    return OnControl<0, id, handler>();
}

// Commands or clicks of a range of ids, both ends included: void (UINT id).
template <UINT firstId, UINT lastId, auto handler>
constexpr MapEntry OnCommandIds() {
    message_map_detail::RequireSignature<handler, void, UINT>();
    static_assert(firstId <= lastId);
    return {MapKind::Command, 0, firstId, lastId,
            [](CCommandTarget& target, const MapArguments& given, LRESULT& result) {
                result = message_map_detail::Call<handler>(target, UINT{given.id});
                return true;
            }};
}

// The colours of this window's controls: HBRUSH (CDC&, CWnd* control, UINT WM_CTLCOLOR message).
template <auto handler>
constexpr MapEntry OnColor() {
    message_map_detail::RequireSignature<handler, HBRUSH, CDC&, CWnd*, UINT>();
    return {MapKind::Color, 0, 0, 0, [](CCommandTarget& target, const MapArguments& given, LRESULT& result) {
                const HBRUSH brush = message_map_detail::CallColor(
                    target, given, [](CCommandTarget& each, CDC& dc, CWnd* control, UINT message) {
                        auto& object =
                            static_cast<typename message_map_detail::Member<decltype(handler)>::Class&>(each);
                        return (object.*handler)(dc, control, message);
                    });
                result = message_map_detail::ToResult(brush);
                return true;
            }};
}

// This control's own notification by WM_COMMAND, offered to it before its parent: void () ends it here, bool () tells
// whether it does.
template <UINT code, auto handler>
constexpr MapEntry OnReflect() {
    return {MapKind::ReflectCommand, code, 0, 0, [](CCommandTarget& target, const MapArguments&, LRESULT&) {
                return message_map_detail::CallReflected<handler>(target);
            }};
}

// This control's own colours: HBRUSH (CDC&, UINT WM_CTLCOLOR message). Null leaves them to the parent.
template <auto handler>
constexpr MapEntry OnReflectColor() {
    message_map_detail::RequireSignature<handler, HBRUSH, CDC&, UINT>();
    return {MapKind::ReflectColor, 0, 0, 0, [](CCommandTarget& target, const MapArguments& given, LRESULT& result) {
                const HBRUSH brush = message_map_detail::CallColor(
                    target, given, [](CCommandTarget& each, CDC& dc, CWnd*, UINT message) {
                        auto& object =
                            static_cast<typename message_map_detail::Member<decltype(handler)>::Class&>(each);
                        return (object.*handler)(dc, message);
                    });
                result = message_map_detail::ToResult(brush);
                return brush != nullptr;
            }};
}
