#include <smmintrin.h>

#include "platform/machine/workloads/processor_tests/operations.h"

namespace machine {
namespace {

__m128i Load(const Block& block) {
  return _mm_load_si128(reinterpret_cast<const __m128i*>(block.bytes));
}

__m128 LoadPs(const Block& block) {
  return _mm_castsi128_ps(Load(block));
}

Block Store(__m128i value) {
  Block block;
  _mm_store_si128(reinterpret_cast<__m128i*>(block.bytes), value);
  return block;
}

Block Store(__m128 value) {
  return Store(_mm_castps_si128(value));
}

}  // namespace

Block Sse41DotProductPs(const Block& a, const Block& b) {
  return Store(_mm_dp_ps(LoadPs(a), LoadPs(b), 0xF5));  // all four, into elements 0 and 2
}

Block Sse41BlendB(const Block& a, const Block& b) {
  return Store(_mm_blendv_epi8(Load(a), Load(b), _mm_xor_si128(Load(a), Load(b))));
}

Block Sse41RoundPs(const Block& a, const Block&) {
  return Store(_mm_round_ps(LoadPs(a), _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC));
}

Block Sse41MinD(const Block& a, const Block& b) {
  return Store(_mm_min_epi32(Load(a), Load(b)));
}

Block Sse41MaxUnsignedD(const Block& a, const Block& b) {
  return Store(_mm_max_epu32(Load(a), Load(b)));
}

Block Sse41MulLowD(const Block& a, const Block& b) {
  return Store(_mm_mullo_epi32(Load(a), Load(b)));
}

}  // namespace machine
