// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <limits>

namespace orv {

/// How many numbers there are, their mean, their sample standard deviation and the least and greatest of them.
///
/// Welford's recurrence, which loses no digits however large the mean is beside the deviation: with the k-th number x,
/// m(k) = m(k-1) + (x - m(k-1)) / k and s(k) = s(k-1) + (x - m(k-1)) (x - m(k)). The mean is m(n), the standard
/// deviation sqrt(s(n) / (n - 1)).
class Statistics {
public:
    /// Takes a number; one that is NaN is none.
    void add(double number) {
        if (std::isnan(number)) {
            return;
        }
        ++count_;
        const double before = number - mean_;
        mean_ += before / count_;
        squares_ += before * (number - mean_);
        whole_ = whole_ && number == std::trunc(number);
        minimum_ = number < minimum_ ? number : minimum_;
        maximum_ = number > maximum_ ? number : maximum_;
    }

    int count() const { return count_; }
    /// Of no number there is none: NaN.
    double mean() const { return count_ > 0 ? mean_ : std::numeric_limits<double>::quiet_NaN(); }
    /// Of one number there is none either.
    double deviation() const {
        return count_ > 1 ? std::sqrt(squares_ / (count_ - 1)) : std::numeric_limits<double>::quiet_NaN();
    }
    double minimum() const { return minimum_; }
    double maximum() const { return maximum_; }
    /// Whether all of them are whole, as counts are.
    bool whole() const { return whole_; }

private:
    int count_ = 0;
    double mean_ = 0.0;
    double squares_ = 0.0;
    bool whole_ = true;
    double minimum_ = std::numeric_limits<double>::infinity();
    double maximum_ = -std::numeric_limits<double>::infinity();
};

} // namespace orv
