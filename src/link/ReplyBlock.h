// What one command got back from the line, on its way from the worker to the user-interface thread.
//
// A reply crosses by one posted message whose wParam is the block's address; CReplyMailbox keeps the ownership
// meanwhile. Bytes are raw: nothing is searched or decoded on the worker.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "link/CounterFrame.h"
#include "link/CounterRecord.h"

struct ReplyBlock {
    std::int32_t length = 0;  // bytes read, 0 to replyCapacity; 0 is an ordinary outcome: nobody answered
    std::int32_t address = 0; // the command's address byte taken as signed: 0 to 5, or -1 for all counters
    std::array<std::uint8_t, replyCapacity> data{}; // the first `length` bytes count
    CounterRecord settings; // what a Set clock or Write settings sent; all zero for the other commands

    std::span<const std::uint8_t> GetBytes() const { return {data.data(), static_cast<std::size_t>(length)}; }
};
