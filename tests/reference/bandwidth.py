"""The statistics of one bandwidth, and their probabilities."""

import math

from number_text import RunTimeStop, num

PI_SHORT = 3.14159265


def normal_p_value(z):
    if z > 4.5:
        return 0.0
    x = z if z > 0 else -z
    area, h, s = 0.0, 0.0001, 1.0
    c = math.sqrt(6.2831853)
    while x > 0:
        f1 = math.exp((-x * x) / ((s * s) * 2)) * (1 / (c * s))
        x = x - h
        f2 = math.exp((-x * x) / ((s * s) * 2)) * (1 / (c * s))
        area = area + h * ((f2 + f1) / 2)
        if 0.5 - area < 0.00001:
            break
    return 0.0 if area > 0.5 else 0.5 - area


def chi_square_p_value(chi, df):
    if chi / df < 0:
        raise RunTimeStop(5)
    a = (chi / df) ** 0.33333
    a = a - 1
    a = a + 2 / (df * 9)
    return normal_p_value(math.sqrt((df * 9) / 2) * a)


def chi_critical(alpha, df):
    z = {0.01: 2.57, 0.05: 1.96}.get(alpha)
    if z is None:
        return 0.0
    q = 2 / (df * 9)
    v = math.sqrt(q) * z
    v = v + 1
    v = v - q
    return v ** (1 / 0.33333) * df


def kernel(data, area, sigma):
    n = data.n
    r = math.sqrt(PI_SHORT)
    rows = []
    for i in range(n):
        row = []
        for j in range(n):
            if i == j:
                row.append(1 / (sigma * r))
                continue
            d = ((data.x[i] - data.x[j]) ** 2.0 + (data.y[i] - data.y[j]) ** 2.0) ** 0.5
            e = math.exp((d**2.0 * -1.0) / ((sigma**2.0 + sigma**2.0) * (area / n)))
            row.append((1 / (sigma * r)) * e)
        s = 0.0
        for k in row:
            s += k * k
        root = math.sqrt(s)
        rows.append([k / root for k in row])
    return rows


def dot(a, b):
    s = 0.0
    for x, y in zip(a, b):
        s += x * y
    return s


def transposed(matrix):
    return [list(column) for column in zip(*matrix)]


class Bandwidth:
    """All results of one bandwidth."""

    def __init__(self, data, plot, sigma, variable, alpha, sweep, warn):
        self.sigma = sigma
        self.variable = variable
        score = variable in ("unadjusted", "adjusted")
        if variable == "adjusted" and sweep:
            self.run_m(data, plot)
        if score:
            self.run_score(data, plot, alpha)
        if variable != "unadjusted" and not (variable == "adjusted" and sweep):
            self.run_m(data, plot)
        if variable != "unadjusted":
            self.max_m = max(self.m)
            self.m_critical = m_critical(sigma, alpha, data.n, warn)

    def run_m(self, data, plot):
        self.area = plot.study_area()
        w = kernel(data, self.area, self.sigma)
        self.dev = [deviation(self.variable, o, e) for o, e in zip(data.obs, data.exp)]
        self.m = [dot(self.dev, row) for row in w]

    def run_score(self, data, plot, alpha):
        adjusted = self.variable == "adjusted"
        n, total = data.n, data.total_obs
        self.area = plot.study_area()
        w = kernel(data, self.area, self.sigma)
        columns = transposed(w)
        gram = [[0.0] * n for _ in range(n)]
        for i in range(n):
            for j in range(i, n):  # x * y is y * x to the last bit, so the other half is the same
                gram[i][j] = gram[j][i] = dot(columns[i], columns[j])
        if adjusted:
            w = [[w[a][b] / math.sqrt(data.exp[b]) for b in range(n)] for a in range(n)]
            gram = [
                [gram[a][b] / math.sqrt(data.ratio[a] * data.ratio[b]) for b in range(n)] for a in range(n)
            ]
        self.u, self.z, self.global_u = [], [], 0.0
        for row in w:
            a = b = c = 0.0
            for weight, o, e in zip(row, data.obs, data.exp):
                a += (o - e) * weight
                b += weight * weight * e
                c += (e * weight) / total
            self.u.append(a)
            self.z.append(a / math.sqrt(b - c))
            self.global_u += a * a
        self.moments(gram, data.ratio, total)
        scaled = self.global_u / total if adjusted else self.global_u / (total * total)
        self.score_z = (scaled - self.mean) / math.sqrt(self.var)
        self.chi = self.score_z * math.sqrt(self.df + self.df) + self.df
        self.chi_p = chi_square_p_value(self.chi, self.df)
        self.normal_p = normal_p_value(self.score_z)
        self.chi_critical = chi_critical(alpha, self.df)

    def moments(self, gram, ratio, total):
        n = len(ratio)
        v = [[(ratio[i] if i == j else 0.0) - ratio[i] * ratio[j] for j in range(n)] for i in range(n)]
        v_columns = transposed(v)
        a = [[dot(column, row) for column in v_columns] for row in gram]
        a_columns = transposed(a)
        b = [[dot(column, row) for column in a_columns] for row in a]
        t1 = t2 = t3 = 0.0
        for i in range(n):
            t1 += a[i][i]
            t2 += b[i][i]
            t3 += dot(a_columns[i], b[i])  # the diagonal of b times a
        root = t2**1.5 / t3
        self.df = root * root
        self.mean = t1 / total
        self.var = (t2 + t2) / (total * total)


def deviation(variable, o, e):
    if variable == "adjusted":
        return (o - e) / math.sqrt(e)
    if variable == "freeman-tukey":
        return math.sqrt(o) + math.sqrt(o + 1) - math.sqrt(e * 4 + 1)
    a, b = math.sqrt(o * e), math.sqrt(e)
    return ((o - e * 3) + (a + a)) / (b + b)


def m_critical(sigma, alpha, n, warn):
    x = ((sigma * sigma * 0.81 + 1) * (alpha * 4)) / n
    if x <= 0:
        warn("Error!")
        return 0.0
    y = (-math.sqrt(PI_SHORT)) * math.log(x)
    if y <= 0:
        warn("Error!")
        return 0.0
    return float(num(math.sqrt(y), "###0.0000"))
