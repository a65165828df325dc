// Numbers of the window messages by which the device link reaches the panel. They lie in the range that Win32 leaves to
// a window class of its own.
//
//   message            wParam                              lParam
//   WM_POLL_REPLY      block, always                       address polled, signed
//   WM_SETTINGS_REPLY  block, always                       address asked, signed
//   the other replies  block, or 0 when nobody answered    length of the reply in bytes, or 0
//   WM_SHOW_COUNTER    address                             0
//
// Any program may send such a number with anything in it: a wParam is worth something only once CReplyMailbox::Take has
// given the block for it, and length and address are to be read from the block, not from lParam.
#pragma once

#include <cstdint>

inline constexpr std::uint32_t WM_POLL_REPLY = 0x464;
inline constexpr std::uint32_t WM_SETTINGS_REPLY = 0x466;
inline constexpr std::uint32_t WM_CLEAR_REPLY = 0x467;
inline constexpr std::uint32_t WM_WRITE_REPLY = 0x468;
inline constexpr std::uint32_t WM_ADDRESS_REPLY = 0x469;
inline constexpr std::uint32_t WM_CLOCK_REPLY = 0x46A;
inline constexpr std::uint32_t WM_SHOW_COUNTER = 0x46E;
