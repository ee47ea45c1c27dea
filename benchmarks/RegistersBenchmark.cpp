// Writing and reading back a register, aim 20 million a second, and a set of 16 fractions, aim one
// million.

#include "RegisterSet.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace
{

using Raw = unsigned long long;

void setAndGet(benchmark::State& state)
{
    Register field(QStringLiteral("field"), 0, 32, 3, 0);
    Raw value = 0;
    Raw sum = 0;
    for (auto _ : state) {
        field.setValue(++value & 0xFFFFFFFFULL);
        sum += static_cast<Raw>(field);
    }
    benchmark::DoNotOptimize(sum);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(setAndGet)->Name("register: set and get");

void setAndCompose(benchmark::State& state)
{
    constexpr unsigned char Fractions = 16;
    constexpr unsigned char Width = 4;
    std::vector<std::unique_ptr<Register>> fractions;
    RegisterSet set(QStringLiteral("set"), 0);
    for (unsigned char i = 0; i < Fractions; ++i) {
        fractions.push_back(std::make_unique<Register>(QStringLiteral("fraction %1").arg(i),
                                                       static_cast<unsigned char>(Width * i), Width,
                                                       3, 0));
        set.addFraction(fractions.back().get());
    }
    Raw value = 0;
    Raw sum = 0;
    for (auto _ : state) {
        set.setValue(value += 0x0123456789ABCDEFULL);
        sum += static_cast<Raw>(set);
    }
    benchmark::DoNotOptimize(sum);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(setAndCompose)->Name("set of 16 fractions: set and get");

} // namespace

BENCHMARK_MAIN();
