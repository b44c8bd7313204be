#include <tmmintrin.h>

#include "platform/machine/workloads/processor_tests/operations.h"

namespace machine {
namespace {

__m128i Load(const Block& block) {
  return _mm_load_si128(reinterpret_cast<const __m128i*>(block.bytes));
}

Block Store(__m128i value) {
  Block block;
  _mm_store_si128(reinterpret_cast<__m128i*>(block.bytes), value);
  return block;
}

}  // namespace

Block Ssse3ShuffleB(const Block& a, const Block& b) {
  return Store(_mm_shuffle_epi8(Load(a), Load(b)));
}

Block Ssse3AbsW(const Block& a, const Block&) {
  return Store(_mm_abs_epi16(Load(a)));
}

Block Ssse3MulAddB(const Block& a, const Block& b) {
  return Store(_mm_maddubs_epi16(Load(a), Load(b)));
}

Block Ssse3HorizontalAddD(const Block& a, const Block& b) {
  return Store(_mm_hadd_epi32(Load(a), Load(b)));
}

Block Ssse3SignB(const Block& a, const Block& b) {
  return Store(_mm_sign_epi8(Load(a), Load(b)));
}

}  // namespace machine
