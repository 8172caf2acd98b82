// Bad arguments: each fault of a call alone gives its status, of two faults at once the earlier one's, and none writes.
//   Contract contract(zorsMul_32f, src1, src2, dst, 8);
//   contract.null<0>().null<1>().null<2>().bad<3>({0, -1, INT_MIN}, zorStatusBadSize).untouched(dst,
//   8).verify("zorsMul_32f");
// The faults stand in the order in which the function tests them.
#pragma once

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "zors/types.h"

namespace kit {

namespace detail {

// An argument of any type, and a call that takes such: what varies by signature is this thunk alone.
struct Argument {
  alignas(16) std::byte bytes[16];
};
template <class T> Argument argument(T value) {
  static_assert(sizeof(T) <= sizeof(Argument));
  Argument out = {};
  std::memcpy(out.bytes, &value, sizeof value);
  return out;
}
template <class T> T valueOf(const Argument& argument) {
  T value;
  std::memcpy(&value, argument.bytes, sizeof value);
  return value;
}
using Function = void (*)();
using Invoke = ZorStatus (*)(Function f, const Argument* arguments);
template <class... P> ZorStatus invoke(Function f, const Argument* arguments) {
  return [&]<std::size_t... i>(std::index_sequence<i...>) {
    return reinterpret_cast<ZorStatus (*)(P...)>(f)(valueOf<P>(arguments[i])...);
  }
  (std::index_sequence_for<P...>{});
}

class AnyContract {
 public:
  AnyContract(Function function, Invoke invoke, std::vector<Argument> good)
      : function_(function), invoke_(invoke), good_(std::move(good)) {}
  void bad(std::size_t at, const Argument& value, ZorStatus status) { faults_.push_back({at, value, status}); }
  void untouched(const void* memory, std::size_t bytes) {
    const auto* p = static_cast<const char*>(memory);
    kept_.push_back({p, std::string(p, bytes)});
  }
  void verify(const std::string& name) const;

 private:
  struct Fault {
    std::size_t argument;
    Argument value;
    ZorStatus status;
  };
  struct Kept {
    const char* memory;
    std::string before;
  };
  void attempt(const std::string& name, std::initializer_list<const Fault*> faults) const;

  Function function_;
  Invoke invoke_;
  std::vector<Argument> good_;
  std::vector<Fault> faults_;
  std::vector<Kept> kept_;
};

}  // namespace detail

template <class... P> class Contract {
 public:
  Contract(ZorStatus (*function)(P...), std::type_identity_t<P>... good)
      : calls_(reinterpret_cast<detail::Function>(function), detail::invoke<P...>, {detail::argument<P>(good)...}) {}

  template <std::size_t at> Contract& null(ZorStatus status = zorStatusNullPointer) {
    return bad<at>({nullptr}, status);
  }
  template <std::size_t at>
  Contract& bad(std::initializer_list<std::tuple_element_t<at, std::tuple<P...>>> values, ZorStatus status) {
    for (auto value : values) calls_.bad(at, detail::argument(value), status);
    return *this;
  }
  // Memory that no failing call may change.
  Contract& untouched(const void* memory, std::size_t bytes) {
    calls_.untouched(memory, bytes);
    return *this;
  }
  template <class T> Contract& untouched(const std::vector<T>& memory) {
    return untouched(memory.data(), memory.size() * sizeof(T));
  }

  void verify(const char* name) const { calls_.verify(name); }

 private:
  detail::AnyContract calls_;
};
template <class... P, class... A> Contract(ZorStatus (*)(P...), A...) -> Contract<P...>;

}  // namespace kit
