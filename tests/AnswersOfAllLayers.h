#pragma once

// Whether the answers of many layers in one call (ForEachLayerAnswer, which
// indexes the sections) are those the getters give one layer at a time,
// scanning them: the same answer, or the same error message. An answer that
// holds a NaN equals nothing, not even itself, so two such answers count as
// the same. The tests and the fuzzer both ask this.

#include <string>
#include <type_traits>
#include <vector>

#include <boost/optional.hpp>

#include <TerrixExchange/queries/NamedQueries.h>

namespace TerrixExchange {
namespace Testing {

template <class Answer>
struct Outcome {
    boost::optional<Answer> answer;
    std::string error;

    bool operator==(const Outcome& other) const {
        if (error != other.error || !answer != !other.answer) return false;
        return !answer || *answer == *other.answer || (!(*answer == *answer) && !(*other.answer == *other.answer));
    }
};

template <class Query>
auto OutcomeOf(Query query) {
    Outcome<std::decay_t<decltype(query())>> outcome;
    try {
        outcome.answer = query();
    } catch (const std::runtime_error& error) {
        outcome.error = error.what();
    }
    return outcome;
}

// Empty when every answer is the getter's; else "layer N: NAME" of the first
// that is not (N counts from 0), or what was not asked. The answers come
// from ForEachLayerAnswer, or, given `indexed`, through a lookup built for
// those layers alone, so that the others are looked up by a scan.
inline std::string FirstAnswerUnlikeTheGetters(const Terrix& profile, const std::vector<Layer>& layers,
                                               const std::vector<Layer>* indexed = nullptr) {
    std::string unlike;
    std::size_t asked = 0;
    auto compare = [&](const Layer& layer, const char* name, auto answer) {
        ++asked;
        ForEachLayerQuery([&](const char* getterName, auto getter) {
            if constexpr (std::is_same_v<decltype(answer()), decltype((profile.*getter)(layer))>) {
                if (std::string(name) != getterName || !unlike.empty()) return;
                if (!(OutcomeOf(answer) == OutcomeOf([&] { return (profile.*getter)(layer); })))
                    unlike = "layer " + std::to_string(&layer - layers.data()) + ": " + name;
            }
        });
    };
    if (indexed == nullptr) {
        ForEachLayerAnswer(profile, layers, compare);
    } else {
        const LayerLookup lookup(profile, *indexed);
        for (const Layer& layer : layers)
            ForEachLayerQueryWithLookup([&](const char* name, auto, auto query) {
                compare(layer, name, [&] { return query(lookup, layer); });
            });
    }
    std::size_t queries = 0;
    ForEachLayerQuery([&](const char*, auto) { ++queries; });
    if (unlike.empty() && asked != layers.size() * queries) unlike = std::to_string(asked) + " answers asked";
    return unlike;
}

}  // namespace Testing
}  // namespace TerrixExchange
