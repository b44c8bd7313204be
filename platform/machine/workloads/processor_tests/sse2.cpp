#include <emmintrin.h>

#include "platform/machine/workloads/processor_tests/operations.h"

namespace machine {
namespace {

__m128d LoadPd(const Block& block) {
  return _mm_castsi128_pd(_mm_load_si128(reinterpret_cast<const __m128i*>(block.bytes)));
}

__m128i Load(const Block& block) {
  return _mm_load_si128(reinterpret_cast<const __m128i*>(block.bytes));
}

Block Store(__m128i value) {
  Block block;
  _mm_store_si128(reinterpret_cast<__m128i*>(block.bytes), value);
  return block;
}

Block Store(__m128d value) {
  return Store(_mm_castpd_si128(value));
}

}  // namespace

Block Sse2AddPd(const Block& a, const Block& b) {
  return Store(_mm_add_pd(LoadPd(a), LoadPd(b)));
}

Block Sse2MulPd(const Block& a, const Block& b) {
  return Store(_mm_mul_pd(LoadPd(a), LoadPd(b)));
}

Block Sse2SqrtPd(const Block& a, const Block&) {
  const __m128d squared = _mm_mul_pd(LoadPd(a), LoadPd(a));
  return Store(_mm_sqrt_pd(_mm_add_pd(squared, _mm_set1_pd(1.0))));
}

Block Sse2AddD(const Block& a, const Block& b) {
  return Store(_mm_add_epi32(Load(a), Load(b)));
}

Block Sse2SubQ(const Block& a, const Block& b) {
  return Store(_mm_sub_epi64(Load(a), Load(b)));
}

Block Sse2MulLowW(const Block& a, const Block& b) {
  return Store(_mm_mullo_epi16(Load(a), Load(b)));
}

Block Sse2MulUnsignedDq(const Block& a, const Block& b) {
  return Store(_mm_mul_epu32(Load(a), Load(b)));
}

Block Sse2AddSaturatedB(const Block& a, const Block& b) {
  return Store(_mm_adds_epi8(Load(a), Load(b)));
}

Block Sse2CmpGtD(const Block& a, const Block& b) {
  return Store(_mm_cmpgt_epi32(Load(a), Load(b)));
}

}  // namespace machine
