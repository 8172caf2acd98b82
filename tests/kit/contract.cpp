#include "kit/contract.h"

#include <gtest/gtest.h>

namespace kit::detail {

void AnyContract::verify(const std::string& name) const {
  for (std::size_t i = 0; i < faults_.size(); ++i) {
    attempt(name, {&faults_[i]});
    for (std::size_t j = i + 1; j < faults_.size(); ++j)
      if (faults_[i].argument != faults_[j].argument) attempt(name, {&faults_[i], &faults_[j]});
  }
}

void AnyContract::attempt(const std::string& name, std::initializer_list<const Fault*> faults) const {
  auto arguments = good_;
  const auto what = [&] {
    std::string text = name;
    for (const Fault* fault : faults) text += ", bad argument " + std::to_string(fault->argument);
    return text;
  };
  for (const Fault* fault : faults) arguments[fault->argument] = fault->value;
  EXPECT_EQ(invoke_(function_, arguments.data()), (*faults.begin())->status) << what();
  for (const Kept& kept : kept_)
    EXPECT_EQ(std::memcmp(kept.memory, kept.before.data(), kept.before.size()), 0) << what() << " wrote";
}

}  // namespace kit::detail
