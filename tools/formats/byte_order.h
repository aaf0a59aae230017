#pragma once

/// The order in which a file stores the bytes of a number.
enum class ByteOrder { Little, Big };
