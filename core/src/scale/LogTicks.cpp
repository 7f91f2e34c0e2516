// SPDX-License-Identifier: MIT
#include "LogTicks.h"

#include "LinearTicks.h"
#include "NumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zembra {

namespace {

constexpr double e = 2.718281828459045235;
// Ranges of fewer decades than this are told by linear ticks.
constexpr double fewestDecades = 0.7;
// Of 1, 2, 5 and 10, the two closest to each other are this many decades apart.
constexpr double gapOfTwo = 0.30103;
// The power of ten from which bases are too long to be repeated in every label.
constexpr int longestBase = 5;
// The same of 1, 3 and 10.
constexpr double gapOfThree = 0.47712;
constexpr std::array<int, 3> oneTwoFive = {1, 2, 5};
constexpr std::array<int, 2> oneThree = {1, 3};
constexpr std::array<int, 9> oneToNine = {1, 2, 3, 4, 5, 6, 7, 8, 9};

std::string raisedText(const LogStep& step, PowerForm form, const NumberFormat& format) {
    const Decimal base = Decimal::shortest(step.factor != 1 ? 10.0 : step.base);
    // Powers of a thousand are powers of ten to the reader.
    const bool isTen = base.digits == 1;
    if (!isTen && base.magnitude() >= longestBase)
        return scientificText(Decimal::nearest(step.value(), 4), 1, format);
    const std::string mantissa =
        step.factor == 1 ? "" : plainText({step.factor, 0}, 0, format) + "\u00d7";
    const std::string root = isTen ? "10" : step.base == e ? "e" : plainText(base, 0, format);
    const int power = isTen ? base.exponent * step.power : step.power;
    return mantissa + root + (power != 1 || form == PowerForm::Always ? superscript(power) : "");
}

// The first and the last power of the base in the range.
struct Powers {
    int first = 0;
    int last = -1;
};

double powerOf(double base, int power) {
    return LogStep{base, 1, power}.value();
}

Powers powersWithin(double min, double max, double base) {
    const auto log = [base](double value) {
        return base == 10.0 ? std::log10(value) : std::log(value) / std::log(base);
    };
    // Bases close to one have more powers in all of double than an int can count.
    const double lowest = std::ceil(log(min));
    const double highest = std::floor(log(max));
    if (!(std::abs(lowest) < 1e9 && std::abs(highest) < 1e9))
        return {};
    // The logarithms are off by less than one.
    Powers powers{static_cast<int>(lowest) - 1, static_cast<int>(highest) + 1};
    while (powerOf(base, powers.first) < min)
        ++powers.first;
    while (powerOf(base, powers.last) > max)
        --powers.last;
    return powers;
}

// Multiples of small powers fall together among the subnormal numbers; one of them is enough.
void addMajor(TickSet& set, const LogStep& step, double min, double max, const TickRequest& request,
              Side side) {
    const double value = step.value();
    const PowerForm form = powerForm(std::log10(max) - std::log10(min));
    if (value >= min && value <= max && (set.major.empty() || value > set.major.back().value))
        set.major.push_back({value, logLabel(step, side, form, request), {}});
}

template <std::size_t N>
void addMultiples(std::vector<double>& values, const Powers& powers,
                  const std::array<int, N>& factors, double min, double max) {
    for (int power = powers.first - 1; power <= powers.last; ++power) {
        for (const int factor : factors) {
            const double value = Decimal{factor, power}.toDouble();
            if (value >= min && value <= max && (values.empty() || value > values.back()))
                values.push_back(value);
        }
    }
}

// The powers of ten and their multiples by the factors, which begin with 1.
template <std::size_t N>
TickSet multipleTicks(double min, double max, const std::array<int, N>& factors,
                      const TickRequest& request, Side side) {
    TickSet set;
    const Powers powers = powersWithin(min, max, 10.0);
    for (int power = powers.first - 1; power <= powers.last; ++power) {
        for (const int factor : factors)
            addMajor(set, {10.0, factor, power}, min, max, request, side);
    }
    if (request.minor)
        addMultiples(set.minor, powers, oneToNine, min, max);
    return set;
}

// The powers that are multiples of `step`, and between them either powers or, where every power is
// labelled, the integer multiples.
TickSet powerTicks(double min, double max, double base, int step, const TickRequest& request,
                   Side side) {
    TickSet set;
    const Powers powers = powersWithin(min, max, base);
    const auto begin = -floorDiv(-std::int64_t{powers.first}, step) * step;
    for (std::int64_t power = begin; power <= powers.last; power += step)
        addMajor(set, {base, 1, static_cast<int>(power)}, min, max, request, side);
    if (!request.minor)
        return set;
    if (step == 1 && base == 10.0) {
        addMultiples(set.minor, powers, oneToNine, min, max);
        return set;
    }
    // As many in between as can be told apart.
    const int between = step <= 10 ? 1 : niceCount(step / 10.0);
    if (step % between != 0 || (powers.last - powers.first) / between > minorCap)
        return set;
    const auto start = -floorDiv(-std::int64_t{powers.first}, between) * between;
    for (std::int64_t power = start; power <= powers.last; power += between) {
        const double value = powerOf(base, static_cast<int>(power));
        if (set.minor.empty() || value > set.minor.back())
            set.minor.push_back(value);
    }
    return set;
}

TickSet linearWithinDecade(double min, double max, const TickRequest& request, Side side) {
    // At the upper end, they stand closest.
    const double crowding = std::log(max / min) / (1.0 - min / max);
    return side == Side::Positive ? linearTicksThinned(min, max, crowding, request)
                                  : linearTicksThinned(-max, -min, crowding, request);
}

// The labels already carry their sign.
void mirror(TickSet& set) {
    std::reverse(set.major.begin(), set.major.end());
    for (Tick& tick : set.major)
        tick.value = -tick.value;
    std::reverse(set.minor.begin(), set.minor.end());
    for (double& value : set.minor)
        value = -value;
}

TickSet powersOrMultiples(double min, double max, double base, const TickRequest& request,
                          Side side) {
    // Differences of logarithms, since the quotient may overflow.
    const double decades = std::log10(max) - std::log10(min);
    const double span = base == 10.0 ? decades : (std::log(max) - std::log(min)) / std::log(base);
    // Within less than two powers of the user's base, decades tell more.
    if (base != 10.0 && span < 2.0)
        return powersOrMultiples(min, max, 10.0, request, side);
    if (base == 10.0 && decades < fewestDecades)
        return {};
    const double room = decades * spanSlack / request.maxMajor;
    if (base == 10.0 && room < gapOfTwo)
        return multipleTicks(min, max, oneTwoFive, request, side);
    // From two decades on, there are two powers at least.
    if (base == 10.0 && room < gapOfThree && decades < 2.0)
        return multipleTicks(min, max, oneThree, request, side);
    return powerTicks(min, max, base, niceCount(span * spanSlack / request.maxMajor), request,
                      side);
}

} // namespace

int niceCount(double least) {
    for (int power = 1; power < 100'000'000; power *= 10) {
        for (const int factor : {1, 2, 3, 5}) {
            if (factor * power >= least)
                return factor * power;
        }
    }
    return 1'000'000'000;
}

double LogStep::value() const {
    return base == 10.0 || factor != 1 ? Decimal{factor, power}.toDouble() : std::pow(base, power);
}

PowerForm powerForm(double decades) {
    constexpr double most = 6.5;
    return decades > most ? PowerForm::Always : PowerForm::WhereLong;
}

std::string logLabel(const LogStep& step, Side side, PowerForm form, const TickRequest& request) {
    const NumberFormat& format = formatOf(request);
    const bool isTen = step.base == 10.0 || step.factor != 1;
    Decimal value = isTen ? Decimal{step.factor, step.power} : Decimal::shortest(step.value());
    if (format.notation() != NumberFormat::Notation::Automatic) {
        value.digits = side == Side::Negative ? -value.digits : value.digits;
        return numberText(value, 0, format);
    }
    const bool isShort = value.magnitude() < 5 && value.exponent > -5 &&
                         (step.base != e || step.power == 0) && form == PowerForm::WhereLong;
    const std::string text = isShort ? plainText(value, 0, format) : raisedText(step, form, format);
    return (side == Side::Negative ? minusSign : "") + format.prefix() + text + format.suffix();
}

TickSet logTicks(double min, double max, double base, const TickRequest& request, Side side) {
    TickRequest capped = request;
    capped.maxMajor = std::clamp(request.maxMajor, 1, majorCap);
    TickSet set = powersOrMultiples(min, max, base, capped, side);
    const auto count = [](const TickSet& s) { return static_cast<int>(s.major.size()); };
    const bool isTooMany = count(set) > capped.maxMajor;
    bool isLinear = false;
    // A single tick does not tell a scale.
    if (isTooMany || count(set) < std::min(capped.maxMajor, 2)) {
        TickSet linear = linearWithinDecade(min, max, capped, side);
        isLinear = isTooMany || count(linear) >= count(set);
        if (isLinear)
            set = std::move(linear);
    }
    if (side == Side::Negative && !isLinear)
        mirror(set);
    dropMajors(set.minor, set.major);
    if (static_cast<int>(set.minor.size()) > minorCap)
        set.minor.clear();
    return set;
}

} // namespace zembra
