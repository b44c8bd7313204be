#include <xmmintrin.h>

#include "platform/machine/workloads/processor_tests/operations.h"

namespace machine {
namespace {

__m128 Load(const Block& block) {
  return _mm_load_ps(reinterpret_cast<const float*>(block.bytes));
}

Block Store(__m128 value) {
  Block block;
  _mm_store_ps(reinterpret_cast<float*>(block.bytes), value);
  return block;
}

}  // namespace

Block SseAddPs(const Block& a, const Block& b) {
  return Store(_mm_add_ps(Load(a), Load(b)));
}

Block SseMulPs(const Block& a, const Block& b) {
  return Store(_mm_mul_ps(Load(a), Load(b)));
}

Block SseDivPs(const Block& a, const Block& b) {
  return Store(_mm_div_ps(Load(a), Load(b)));
}

Block SseSqrtPs(const Block& a, const Block&) {
  const __m128 squared = _mm_mul_ps(Load(a), Load(a));
  return Store(_mm_sqrt_ps(_mm_add_ps(squared, _mm_set1_ps(1.0F))));
}

Block SseMinPs(const Block& a, const Block& b) {
  return Store(_mm_min_ps(Load(a), Load(b)));
}

Block SseMaxPs(const Block& a, const Block& b) {
  return Store(_mm_max_ps(Load(a), Load(b)));
}

Block SseCmpLtPs(const Block& a, const Block& b) {
  return Store(_mm_cmplt_ps(Load(a), Load(b)));
}

}  // namespace machine
