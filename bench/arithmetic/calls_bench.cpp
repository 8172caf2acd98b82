// What a call of eight elements costs, over one that only checks its arguments.
#include "kit/bench.h"
#include "zors/arithmetic.h"

namespace {

using bench::array;
using bench::workload;

constexpr Zor32s few = 8;

// call(len)
template <class Call> void row(const std::string& name, Call call) {
  workload(name + ", over a refused call", few).zors([=] { call(few); }).bound([=] { call(0); });
}
template <class A, class B, class D> void row(const char* name, ZorStatus (*f)(const A*, const B*, D*, Zor32s)) {
  row(name, [=, a = array<A>(few), b = array<B>(few), d = array<D>(few)](Zor32s len) { f(a, b, d, len); });
}
template <class A, class B, class D>
void row(const std::string& name, ZorStatus (*f)(const A*, const B*, D*, Zor32s, Zor32s)) {
  for (int scale : {0, 1, 7, -2})
    row(name + " scale " + std::to_string(scale),
        [=, a = array<A>(few), b = array<B>(few), d = array<D>(few)](Zor32s len) { f(a, b, d, len, scale); });
}
template <class A, class D> void row(const char* name, ZorStatus (*f)(const A*, A, D*, Zor32s)) {
  row(name, [=, a = array<A>(few), d = array<D>(few)](Zor32s len) { f(a, a[1], d, len); });
}
template <class A, class D> void row(const std::string& name, ZorStatus (*f)(const A*, A, D*, Zor32s, Zor32s)) {
  for (int scale : {0, 7})
    row(name + " scale " + std::to_string(scale),
        [=, a = array<A>(few), d = array<D>(few)](Zor32s len) { f(a, a[1], d, len, scale); });
}

void calls() {
  row("zorsAdd_8u_Sfs", zorsAdd_8u_Sfs);
  row("zorsAdd_16s_Sfs", zorsAdd_16s_Sfs);
  row("zorsAdd_32s_Sfs", zorsAdd_32s_Sfs);
  row("zorsSub_16sc_Sfs", zorsSub_16sc_Sfs);
  row("zorsMul_8u_Sfs", zorsMul_8u_Sfs);
  row("zorsMul_16s_Sfs", zorsMul_16s_Sfs);
  row("zorsMul_32s_Sfs", zorsMul_32s_Sfs);
  row("zorsMul_16sc_Sfs", zorsMul_16sc_Sfs);
  row("zorsMul_32sc_Sfs", zorsMul_32sc_Sfs);
  row("zorsDiv_16s_Sfs", zorsDiv_16s_Sfs);
  row("zorsDiv_16sc_Sfs", zorsDiv_16sc_Sfs);
  row("zorsAdd_32f", zorsAdd_32f);
  row("zorsMul_32f", zorsMul_32f);
  row("zorsMul_32fc", zorsMul_32fc);
  row("zorsMul_64fc", zorsMul_64fc);
  row("zorsDiv_32f", zorsDiv_32f);
  row("zorsAnd_8u", zorsAnd_8u);
  row("zorsAddC_16s_Sfs", zorsAddC_16s_Sfs);
  row("zorsMulC_16s_Sfs", zorsMulC_16s_Sfs);
  row("zorsMulC_32sc_Sfs", zorsMulC_32sc_Sfs);
  row("zorsMulC_32f16s_Sfs", [=, x = array<Zor32f>(few), d = array<Zor16s>(few)](Zor32s len) {
    zorsMulC_32f16s_Sfs(x, 1.5f, d, len, 7);
  });
  row("zorsMulC_32f", zorsMulC_32f);
  row("zorsMulC_64fc", zorsMulC_64fc);
}

const bench::Registration registration(calls);

}  // namespace
