#pragma once

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <map>
#include <string>

#include "tools/formats/byte_order.h"

/// What the four programs have in common: 0 when the work is done, 1 when a source or file is at fault, 2 when the
/// command line is.
template <typename Work>
int RunProgram(CLI::App& app, int argc, char** argv, Work work) {
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    try {
        work();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << app.get_name() << ": " << error.what() << '\n';
        return 1;
    }
}

inline void AddByteOrder(CLI::App& app, ByteOrder& order) {
    static const std::map<std::string, ByteOrder> kOrders{{"little", ByteOrder::Little}, {"big", ByteOrder::Big}};
    app.add_option("--byte-order", order, "little (what the panel has) or big")
        ->transform(CLI::CheckedTransformer(kOrders, CLI::ignore_case).description(""));
}
