// Bad arguments: each fault of a call alone gives its status, of two faults at once the earlier one's, and none writes.
//   Contract contract(zorsMul_32f, src1, src2, dst, 8);
//   contract.null<0>().null<1>().null<2>().bad<3>({0, -1, INT_MIN}, zorStatusBadSize).untouched(dst,
//   8).verify("zorsMul_32f");
// The faults stand in the order in which the function tests them.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "zors/types.h"

namespace kit {

template <class... P> class Contract {
 public:
  Contract(ZorStatus (*function)(P...), std::type_identity_t<P>... good) : function_(function), good_(good...) {}

  template <std::size_t at> Contract& null(ZorStatus status = zorStatusNullPointer) {
    return bad<at>({nullptr}, status);
  }
  template <std::size_t at>
  Contract& bad(std::initializer_list<std::tuple_element_t<at, std::tuple<P...>>> values, ZorStatus status) {
    for (auto value : values)
      faults_.push_back({[value](auto& arguments) { std::get<at>(arguments) = value; }, status, at,
                         "argument " + std::to_string(at)});
    return *this;
  }
  // Memory that no failing call may change.
  Contract& untouched(const void* memory, std::size_t bytes) {
    const auto* p = static_cast<const char*>(memory);
    kept_.push_back({p, std::string(p, bytes)});
    return *this;
  }
  template <class T> Contract& untouched(const std::vector<T>& memory) {
    return untouched(memory.data(), memory.size() * sizeof(T));
  }

  void verify(const char* name) const {
    for (std::size_t i = 0; i < faults_.size(); ++i) {
      attempt(name, {&faults_[i]});
      for (std::size_t j = i + 1; j < faults_.size(); ++j)
        if (faults_[i].argument != faults_[j].argument) attempt(name, {&faults_[i], &faults_[j]});
    }
  }

 private:
  struct Fault {
    std::function<void(std::tuple<P...>&)> apply;
    ZorStatus status;
    std::size_t argument;
    std::string what;
  };
  struct Kept {
    const char* memory;
    std::string before;
  };

  void attempt(const char* name, std::vector<const Fault*> faults) const {
    auto arguments = good_;
    std::string what = name;
    for (const Fault* fault : faults) {
      fault->apply(arguments);
      what += ", bad " + fault->what;
    }
    EXPECT_EQ(std::apply(function_, arguments), faults.front()->status) << what;
    for (const Kept& kept : kept_)
      EXPECT_EQ(std::memcmp(kept.memory, kept.before.data(), kept.before.size()), 0) << what << " wrote";
  }

  ZorStatus (*function_)(P...);
  std::tuple<P...> good_;
  std::vector<Fault> faults_;
  std::vector<Kept> kept_;
};
template <class... P, class... A> Contract(ZorStatus (*)(P...), A...) -> Contract<P...>;

}  // namespace kit
