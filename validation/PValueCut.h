#pragma once

namespace vastrel::validation {

/// Whether the p-value of a normal score is below a limit, as NormalPValue gives it. The function walks
/// thousands of steps at each call; it is asked only where the score lies close to the one whose p-value is
/// the limit.
class PValueCut {
public:
    explicit PValueCut(double limit);
    bool Below(double z) const;
    double Limit() const { return limit_; }

private:
    double limit_;
    double z_;      // about the score with this p-value
    double margin_; // how far from it the function is asked
};

} // namespace vastrel::validation
