#pragma once

#include <cstdint>

// The operations of the processor tests. Each instruction set has one source of its own, compiled
// with that set's compiler flag. Such a source includes nothing that defines inline functions
// beyond the intrinsics: the linker might keep its copy of one, and code for older processors
// would run into instructions that they do not have.
namespace machine {

/// The contents of a 128-bit register.
struct alignas(16) Block {
  unsigned char bytes[16];
};

using Operation = Block (*)(const Block& a, const Block& b);

// Named after the instruction; "ps" four floats, "pd" two doubles, b/w/d/q integers.
Block SseAddPs(const Block& a, const Block& b);
Block SseMulPs(const Block& a, const Block& b);
Block SseDivPs(const Block& a, const Block& b);
Block SseSqrtPs(const Block& a, const Block& b);
Block SseMinPs(const Block& a, const Block& b);
Block SseMaxPs(const Block& a, const Block& b);
Block SseCmpLtPs(const Block& a, const Block& b);

Block Sse2AddPd(const Block& a, const Block& b);
Block Sse2MulPd(const Block& a, const Block& b);
Block Sse2SqrtPd(const Block& a, const Block& b);
Block Sse2AddD(const Block& a, const Block& b);
Block Sse2SubQ(const Block& a, const Block& b);
Block Sse2MulLowW(const Block& a, const Block& b);
Block Sse2MulUnsignedDq(const Block& a, const Block& b);
Block Sse2AddSaturatedB(const Block& a, const Block& b);
Block Sse2CmpGtD(const Block& a, const Block& b);

Block Sse3HorizontalAddPs(const Block& a, const Block& b);
Block Sse3HorizontalSubPs(const Block& a, const Block& b);
Block Sse3HorizontalAddPd(const Block& a, const Block& b);
Block Sse3AddSubPs(const Block& a, const Block& b);

Block Ssse3ShuffleB(const Block& a, const Block& b);
Block Ssse3AbsW(const Block& a, const Block& b);
Block Ssse3MulAddB(const Block& a, const Block& b);
Block Ssse3HorizontalAddD(const Block& a, const Block& b);
Block Ssse3SignB(const Block& a, const Block& b);

Block Sse41DotProductPs(const Block& a, const Block& b);
Block Sse41BlendB(const Block& a, const Block& b);
Block Sse41RoundPs(const Block& a, const Block& b);
Block Sse41MinD(const Block& a, const Block& b);
Block Sse41MaxUnsignedD(const Block& a, const Block& b);
Block Sse41MulLowD(const Block& a, const Block& b);

Block Sse42Crc32(const Block& a, const Block& b);
Block Sse42FindAnyB(const Block& a, const Block& b);
Block Sse42EqualEachB(const Block& a, const Block& b);
Block Sse42CmpGtQ(const Block& a, const Block& b);

}  // namespace machine
