#pragma once

#include <cstddef>
#include <cstdint>

inline constexpr std::size_t kRdaTaskBufferBytes = 1024;

/// The calling task's own buffer of kRdaTaskBufferBytes, in which it assembles the payload of a call.
///
/// Ten tasks may have one. A task gets its buffer on its first call and keeps it while the process lives.
/// @return the buffer, or null when all belong to other tasks; a console line says so
[[nodiscard]] std::uint8_t* rdaTaskBuffer();
