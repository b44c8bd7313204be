#include <pmmintrin.h>

#include "platform/machine/workloads/processor_tests/operations.h"

namespace machine {
namespace {

__m128i Load(const Block& block) {
  return _mm_lddqu_si128(reinterpret_cast<const __m128i*>(block.bytes));
}

__m128 LoadPs(const Block& block) {
  return _mm_castsi128_ps(Load(block));
}

__m128d LoadPd(const Block& block) {
  return _mm_castsi128_pd(Load(block));
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

Block Sse3HorizontalAddPs(const Block& a, const Block& b) {
  return Store(_mm_hadd_ps(LoadPs(a), LoadPs(b)));
}

Block Sse3HorizontalSubPs(const Block& a, const Block& b) {
  return Store(_mm_hsub_ps(LoadPs(a), LoadPs(b)));
}

Block Sse3HorizontalAddPd(const Block& a, const Block& b) {
  return Store(_mm_castpd_si128(_mm_hadd_pd(LoadPd(a), LoadPd(b))));
}

Block Sse3AddSubPs(const Block& a, const Block& b) {
  return Store(_mm_addsub_ps(LoadPs(a), LoadPs(b)));
}

}  // namespace machine
