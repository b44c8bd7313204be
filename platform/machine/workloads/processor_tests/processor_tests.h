#pragma once

#include <cstddef>
#include <span>

#include "platform/machine/interface/calls.h"
#include "platform/machine/interface/machine.h"
#include "platform/machine/workloads/processor_tests/operations.h"

namespace machine {

/// What an operation's operands hold: whole eighths as floats or doubles, so that sums and products
/// are exact in any order, or any bits.
enum class Operands { Floats, Doubles, Bits };

/// One operation of an instruction set beside its element-by-element twin.
struct OperationRow {
  const char* name;
  Operands operands;
  Operation computed;
  Operation expected;
};

/// Runs every operation over some hundred operands. Code 0, or the number of results that differ
/// from the expected ones, with a text that names the operations.
TestAnswer CompareOperations(std::span<const OperationRow> operations);

/// Runs the test of an instruction set (CpuSse to CpuSse42). On a processor without it nothing runs
/// and the code is 1.
TestAnswer TestProcessor(TestCall test);

/// Whether the processor has the instruction set, by CPUID. False for any other question.
bool ProcessorSupports(SupportCall call);

}  // namespace machine
