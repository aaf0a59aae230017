#pragma once

#include "peg/core/thing.h"

/// A line across a screen: a rectangle filled with one colour.
class Rule : public PegThing {
public:
    Rule(const PegRect& rect, std::uint32_t color);

    void Draw(const PegRect& invalid) override;
};
