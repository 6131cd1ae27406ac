#include <TerrixExchange/archive/ProfileComparison.h>

#include <cmath>

#include <TerrixExchange/document/Terrix.h>

namespace TerrixExchange {

namespace {

bool SameValue(const Json& a, const Json& b) {
    if (a.is_number() && b.is_number()) {
        const double x = a.get<double>(), y = b.get<double>();
        return x == y || (std::isnan(x) && std::isnan(y));
    }
    return a == b;
}

class Comparison {
public:
    Comparison(const Json& dimensions, std::vector<ValueDifference>& differences)
        : dimensions_(dimensions), differences_(differences) {}

    // A parameter, column or list of one section: lists element by element.
    void Values(const std::string& section, std::size_t record, const std::string& column, const Json& a,
                const Json& b) {
        if (a.is_array() && b.is_array()) {
            for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i)
                Add(section, record, column, i, i < a.size() ? a[i] : Json(), i < b.size() ? b[i] : Json());
            return;
        }
        Add(section, record, column, ValueDifference::none, a, b);
    }

    // The members of two objects: a's in order, then those only b has.
    template <class Compare>
    static void Members(const Json& a, const Json& b, Compare compare) {
        static const Json absent;
        for (const auto& [name, value] : a.items()) compare(name, value, b.contains(name) ? b[name] : absent);
        for (const auto& [name, value] : b.items())
            if (!a.contains(name)) compare(name, absent, value);
    }

private:
    void Add(const std::string& section, std::size_t record, const std::string& column, std::size_t element,
             const Json& a, const Json& b) {
        if (SameValue(a, b)) return;
        Units::Runtime::DynamicDimension dimension;
        const auto found = dimensions_.find(section);
        if (found != dimensions_.end() && found->contains(column)) {
            const Json& powers = (*found)[column];
            dimension = {powers[0].get<int>(), powers[1].get<int>()};
        }
        differences_.push_back({section, record, column, element, a, b, dimension});
    }

    const Json& dimensions_;
    std::vector<ValueDifference>& differences_;
};

}  // namespace

std::vector<ValueDifference> CompareProfiles(const Terrix& a, const Terrix& b) {
    std::vector<ValueDifference> differences;
    Json sectionsA, dimensionsA, sectionsB, dimensionsB;
    JsonExporter::Walk(a, sectionsA, dimensionsA);
    JsonExporter::Walk(b, sectionsB, dimensionsB);
    // The dimensions of a column are the same in either profile of one
    // version; b's name those that only b has.
    dimensionsA.update(dimensionsB, true);
    dimensionsB.update(dimensionsA, true);
    Comparison comparison(dimensionsB, differences);

    comparison.Values("", ValueDifference::none, "version", static_cast<int>(a.GetVersion()),
                      static_cast<int>(b.GetVersion()));
    comparison.Values("", ValueDifference::none, "header", JsonText(a.GetHeader()), JsonText(b.GetHeader()));
    Comparison::Members(sectionsA, sectionsB, [&](const std::string& title, const Json& sectionA, const Json& sectionB) {
        static const Json emptySection = Json::object();
        const Json& one = sectionA.is_object() ? sectionA : emptySection;
        const Json& other = sectionB.is_object() ? sectionB : emptySection;
        Comparison::Members(one, other, [&](const std::string& name, const Json& valueA, const Json& valueB) {
            if (name != "records") {
                comparison.Values(title, ValueDifference::none, name, valueA, valueB);
                return;
            }
            const std::size_t count = std::max(valueA.size(), valueB.size());
            for (std::size_t row = 0; row < count; ++row) {
                const Json& recordA = row < valueA.size() ? valueA[row] : emptySection;
                const Json& recordB = row < valueB.size() ? valueB[row] : emptySection;
                Comparison::Members(recordA, recordB, [&](const std::string& column, const Json& x, const Json& y) {
                    comparison.Values(title, row, column, x, y);
                });
            }
        });
    });
    return differences;
}

}  // namespace TerrixExchange
