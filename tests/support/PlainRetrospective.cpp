#include "support/PlainRetrospective.h"

#include "core/numeric/Elementary.h"
#include "core/numeric/Power.h"
#include "core/text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

// ---- Weights

void PlainScoreWeights(Workspace& w) {
    const Index n = w.NumRegion;
    const Table<double> weights = PlainWeights(w);
    w.WeightUnadjusted = weights;
    w.WeightAdjusted.ReDim(n, n);
    w.ScoreGramPlain.ReDim(n - 1, n - 1);
    w.ScoreGramAdjusted.ReDim(n - 1, n - 1);
    for (Index i = 1; i <= n; ++i)
        for (Index j = 1; j <= n; ++j) {
            double gram = 0;
            for (Index k = 1; k <= n; ++k)
                gram = gram + weights(k, i) * weights(k, j);
            w.ScoreGramPlain(i - 1, j - 1) = gram;
            w.ScoreGramAdjusted(i - 1, j - 1) = gram / std::sqrt(w.ExpRatio(i) * w.ExpRatio(j));
            w.WeightAdjusted(i, j) = weights(i, j) / std::sqrt(w.ExpCount(j));
        }
}

// ---- Score

void PlainLocalScore(Workspace& w, const Table<double>& weights, Array1<double>& u, Array1<double>& z,
                     double& global) {
    const Index n = w.NumRegion;
    for (auto* values :
         {&u, &z, &w.MapClassScore, &w.MapDrawScore, &w.DisplayClassValues, &w.DisplayDrawValues})
        values->ReDim(n);
    global = 0;
    for (Index i = 1; i <= n; ++i) {
        double a = 0, b = 0, c = 0;
        for (Index j = 1; j <= n; ++j) {
            a = a + (w.ObsCount(j) - w.ExpCount(j)) * weights(i, j);
            b = b + weights(i, j) * weights(i, j) * w.ExpCount(j);
            c = c + (w.ExpCount(j) * weights(i, j)) / w.TotalObs;
        }
        for (auto* values :
             {&u, &w.MapClassScore, &w.MapDrawScore, &w.DisplayClassValues, &w.DisplayDrawValues})
            (*values)(i) = a;
        z(i) = a / std::sqrt(b - c);
        global = global + a * a;
    }
}

Table<double> PlainMultiply(const Table<double>& a, const Table<double>& b) {
    const Index n = a.UpperBound1();
    Table<double> product(n, n);
    for (Index i = 0; i <= n; ++i)
        for (Index j = 0; j <= n; ++j) {
            double s = 0;
            for (Index k = 0; k <= n; ++k)
                s = s + b(k, j) * a(i, k);
            product(i, j) = s;
        }
    return product;
}

double PlainTrace(const Table<double>& matrix) {
    double sum = 0;
    for (Index i = 0; i <= matrix.UpperBound1(); ++i)
        sum = sum + matrix(i, i);
    return sum;
}

void PlainMoments(Workspace& w, const Table<double>& p) {
    const Index n = w.NumRegion;
    Table<double> v(n - 1, n - 1);
    for (Index i = 0; i < n; ++i)
        for (Index j = 0; j < n; ++j)
            v(i, j) = (i == j ? w.ExpRatio(i + 1) : 0) - w.ExpRatio(i + 1) * w.ExpRatio(j + 1);
    const Table<double> a = PlainMultiply(p, v), b = PlainMultiply(a, a), c = PlainMultiply(b, a);
    const double t1 = PlainTrace(a), t2 = PlainTrace(b), t3 = PlainTrace(c);
    w.ScoreDF = (Power(t2, 1.5) / t3) * (Power(t2, 1.5) / t3);
    w.ScoreMean = t1 / w.TotalObs;
    w.ScoreVar = (t2 + t2) / (w.TotalObs * w.TotalObs);
}

void PlainFinish(Workspace& w, double scaledU) {
    w.ScoreZ = (scaledU - w.ScoreMean) / std::sqrt(w.ScoreVar);
    w.ScoreChi = w.ScoreZ * std::sqrt(w.ScoreDF + w.ScoreDF) + w.ScoreDF;
}

void PlainScore(RetroVariable variable, Workspace& w) {
    PlainScoreWeights(w);
    if (variable == RetroVariable::Unadjusted) {
        PlainLocalScore(w, w.WeightUnadjusted, w.LocalU, w.LocalZ, w.GlobalU);
        PlainMoments(w, w.ScoreGramPlain);
        PlainFinish(w, w.GlobalU / (w.TotalObs * w.TotalObs));
    } else {
        PlainLocalScore(w, w.WeightAdjusted, w.LocalUAdjusted, w.LocalZAdjusted, w.GlobalUAdjusted);
        PlainMoments(w, w.ScoreGramAdjusted);
        PlainFinish(w, w.GlobalUAdjusted / w.TotalObs);
    }
}

// ---- M

double PlainTransform(RetroVariable variable, double o, double e) {
    switch (variable) {
    case RetroVariable::FreemanTukey:
        return std::sqrt(o) + std::sqrt(o + 1) - std::sqrt(e * 4 + 1);
    case RetroVariable::Rossi: {
        const double a = std::sqrt(o * e), b = std::sqrt(e);
        return ((o - e * 3) + (a + a)) / (b + b);
    }
    default:
        return (o - e) / std::sqrt(e);
    }
}

void PlainM(RetroVariable variable, Workspace& w) {
    const Index n = w.NumRegion;
    const Table<double> weights = PlainWeights(w);
    auto& scores = variable == RetroVariable::FreemanTukey ? w.DevFreemanTukey
                   : variable == RetroVariable::Rossi      ? w.DevRossi
                                                           : w.DevPearson;
    const auto outputs = {&w.LocalM,    &w.LocalMSorted,       &w.MapDrawM,
                          &w.MapClassM, &w.DisplayClassValues, &w.DisplayDrawValues};
    scores.ReDim(n);
    for (auto* values : outputs)
        values->ReDim(n);
    for (Index i = 1; i <= n; ++i)
        scores(i) = PlainTransform(variable, w.ObsCount(i), w.ExpCount(i));
    for (Index i = 1; i <= n; ++i) {
        double m = 0;
        for (Index j = 1; j <= n; ++j)
            m = m + scores(j) * weights(i, j);
        for (auto* values : outputs)
            (*values)(i) = m;
    }
}

double PlainMaximum(const Array1<double>& values) {
    return *std::max_element(values.data() + 1, values.data() + values.UpperBound() + 1);
}

double PlainMCritical(const Workspace& w) {
    const double x = ((w.CurrentSigma * w.CurrentSigma * 0.81 + 1) * (w.AlphaLevel * 4)) / w.NumRegion;
    const double y = (-std::sqrt(3.14159265)) * Logarithm(x);
    return ToNumber(Num(std::sqrt(y), "###0.0000"));
}

// ---- Approximations

double PlainDensity(double x) {
    const double c = std::sqrt(6.2831853), s = 1;
    return Exponential((-x * x) / ((s * s) * 2)) * (1 / (c * s));
}

double PlainChiSquarePValue(double chi, double df) {
    double a = Power(chi / df, 0.33333);
    a = a - 1;
    a = a + 2 / (df * 9);
    return PlainNormalPValue(std::sqrt((df * 9) / 2) * a);
}

double PlainChiCritical(double alpha, double df) {
    const double q = 2 / (df * 9);
    double v = std::sqrt(q) * (alpha == 0.01 ? 2.57 : 1.96);
    v = v + 1;
    v = v - q;
    return Power(v, 1 / 0.33333) * df;
}

// ---- Sweep

void PlainStep(RetroVariable variable, Workspace& w) {
    if (variable == RetroVariable::AdjustedPoisson) PlainM(variable, w);
    if (MapsScore(variable))
        PlainScore(variable, w);
    else
        PlainM(variable, w);
}

} // namespace

Table<double> PlainWeights(const Workspace& w) {
    const Index n = w.NumRegion;
    const double sigma = w.CurrentSigma;
    const double r = std::sqrt(3.14159265);
    Table<double> k(n, n);
    for (Index i = 1; i <= n; ++i)
        for (Index j = 1; j <= n; ++j) {
            const RegionPoint &p = w.RegionCentroid(i), &q = w.RegionCentroid(j);
            const double d = Power(Power(p.X - q.X, 2) + Power(p.Y - q.Y, 2), 0.5);
            const double spread =
                (Power(sigma, 2) + Power(sigma, 2)) * (w.TotalShapeArea / static_cast<double>(n));
            k(i, j) =
                i == j ? 1 / (sigma * r) : (1 / (sigma * r)) * Exponential((Power(d, 2) * -1.0) / spread);
        }
    for (Index i = 1; i <= n; ++i) {
        double s = 0;
        for (Index j = 1; j <= n; ++j)
            s = s + k(i, j) * k(i, j);
        for (Index j = 1; j <= n; ++j)
            k(i, j) = k(i, j) / std::sqrt(s);
    }
    return k;
}

double PlainNormalPValue(double z) {
    if (z > 4.5) return 0;
    double x = z > 0 ? z : -z;
    double area = 0;
    const double h = 0.0001;
    while (x > 0) {
        const double f1 = PlainDensity(x);
        x = x - h;
        const double f2 = PlainDensity(x);
        area = area + h * ((f2 + f1) / 2);
        if (0.5 - area < 0.00001) break;
    }
    return area > 0.5 ? 0 : 0.5 - area;
}

void PlainSingle(RetroVariable variable, Workspace& w) {
    if (MapsScore(variable)) PlainScore(variable, w);
    if (HasM(variable)) PlainM(variable, w);
}

void PlainSweep(RetroVariable variable, double from, double to, double step, Workspace& w) {
    const auto count = static_cast<std::int16_t>(std::nearbyint(std::fabs(from - to) / step + 1));
    w.BandwidthCount = count;
    w.SigmaTo = to;
    w.CurrentSigma = from;
    for (auto* values : {&w.BandwidthList, &w.SweepStat, &w.SweepChi, &w.SweepChiCritical, &w.SweepDF,
                         &w.SweepPValue, &w.SweepMaxM, &w.SweepMCritical})
        values->ReDim(count);
    w.StatisticTable.ReDim(w.NumRegion, count);
    w.ChartData.ReDim(count - 1, 1);
    for (Index k = 0; k < count; ++k) {
        PlainStep(variable, w);
        if (MapsScore(variable)) {
            w.SweepStat(k) = variable == RetroVariable::Unadjusted ? w.GlobalU : w.GlobalUAdjusted;
            w.ChartData(k, 0) = w.SweepChi(k) = w.ScoreChi;
            w.SweepDF(k) = w.ScoreDF;
            w.ChartData(k, 1) = w.SweepChiCritical(k) = PlainChiCritical(w.AlphaLevel, w.ScoreDF);
            w.SweepPValue(k) = PlainChiSquarePValue(w.ScoreChi, w.ScoreDF);
        } else {
            w.ChartData(k, 0) = w.SweepStat(k) = PlainMaximum(w.LocalM);
            w.ChartData(k, 1) = w.SweepMCritical(k) = PlainMCritical(w);
        }
        if (variable == RetroVariable::AdjustedPoisson) {
            w.SweepMaxM(k) = PlainMaximum(w.LocalM);
            w.SweepMCritical(k) = PlainMCritical(w);
        }
        if (w.CurrentSigma > to) w.CurrentSigma = to;
        w.BandwidthList(k) = w.CurrentSigma;
        const auto& local = variable == RetroVariable::Unadjusted        ? w.LocalU
                            : variable == RetroVariable::AdjustedPoisson ? w.LocalUAdjusted
                                                                         : w.LocalM;
        for (Index i = 1; i <= w.NumRegion; ++i)
            w.StatisticTable(i, k) = local(i);
        w.CurrentSigma = w.CurrentSigma + step;
    }
}

} // namespace vastrel
