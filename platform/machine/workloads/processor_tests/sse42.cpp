#include <nmmintrin.h>

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

// Few different letters, so that searches find something now and then.
__m128i Letters(const Block& block) {
  return _mm_and_si128(Load(block), _mm_set1_epi8(0x3F));
}

}  // namespace

Block Sse42Crc32(const Block& a, const Block& b) {
  const __m128i words = Load(b);
  unsigned crc = static_cast<unsigned>(_mm_cvtsi128_si32(Load(a)));
  crc = _mm_crc32_u32(crc, static_cast<unsigned>(_mm_cvtsi128_si32(words)));
  crc = _mm_crc32_u8(crc, b.bytes[4]);
  return Store(_mm_cvtsi32_si128(static_cast<int>(crc)));
}

Block Sse42FindAnyB(const Block& a, const Block& b) {
  return Store(_mm_cvtsi32_si128(
      _mm_cmpestri(Letters(a), 16, Letters(b), 16, _SIDD_UBYTE_OPS | _SIDD_CMP_EQUAL_ANY)));
}

Block Sse42EqualEachB(const Block& a, const Block& b) {
  return Store(_mm_cmpestrm(Letters(a), 16, Letters(b), 16,
                            _SIDD_UBYTE_OPS | _SIDD_CMP_EQUAL_EACH | _SIDD_UNIT_MASK));
}

Block Sse42CmpGtQ(const Block& a, const Block& b) {
  return Store(_mm_cmpgt_epi64(Load(a), Load(b)));
}

}  // namespace machine
