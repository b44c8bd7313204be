#pragma once

#include "platform/machine/workloads/processor_tests/operations.h"

// What every operation has to give, computed one element at a time.
namespace machine::expected {

Block AddPs(const Block& a, const Block& b);
Block MulPs(const Block& a, const Block& b);
Block DivPs(const Block& a, const Block& b);
Block SqrtPs(const Block& a, const Block& b);
Block MinPs(const Block& a, const Block& b);
Block MaxPs(const Block& a, const Block& b);
Block CmpLtPs(const Block& a, const Block& b);

Block AddPd(const Block& a, const Block& b);
Block MulPd(const Block& a, const Block& b);
Block SqrtPd(const Block& a, const Block& b);
Block AddD(const Block& a, const Block& b);
Block SubQ(const Block& a, const Block& b);
Block MulLowW(const Block& a, const Block& b);
Block MulUnsignedDq(const Block& a, const Block& b);
Block AddSaturatedB(const Block& a, const Block& b);
Block CmpGtD(const Block& a, const Block& b);

Block HorizontalAddPs(const Block& a, const Block& b);
Block HorizontalSubPs(const Block& a, const Block& b);
Block HorizontalAddPd(const Block& a, const Block& b);
Block AddSubPs(const Block& a, const Block& b);

Block ShuffleB(const Block& a, const Block& b);
Block AbsW(const Block& a, const Block& b);
Block MulAddB(const Block& a, const Block& b);
Block HorizontalAddD(const Block& a, const Block& b);
Block SignB(const Block& a, const Block& b);

Block DotProductPs(const Block& a, const Block& b);
Block BlendB(const Block& a, const Block& b);
Block RoundPs(const Block& a, const Block& b);
Block MinD(const Block& a, const Block& b);
Block MaxUnsignedD(const Block& a, const Block& b);
Block MulLowD(const Block& a, const Block& b);

Block Crc32(const Block& a, const Block& b);
Block FindAnyB(const Block& a, const Block& b);
Block EqualEachB(const Block& a, const Block& b);
Block CmpGtQ(const Block& a, const Block& b);

}  // namespace machine::expected
