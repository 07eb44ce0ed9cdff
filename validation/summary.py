"""The first lines of the page: when to believe the program, in words whose numbers and verdicts come from the counts."""
from counts import mean_of, rounded, share_of

AVERAGES = ("1", "5", "20", "100")
SIGMAS = ("0", "0.2", "0.4", "0.6", "0.8", "1", "1.2", "1.4", "1.6", "1.8", "2", "3")
LOW, HIGH = 0.025, 0.075  # what counts as about right for an alpha of 0.05: within half of it
P_RULE = "chi-squared z above 0 and p below 0.05"


class Alarms:
    """Shares of false alarms of one statistic and rule, over all maps with fixed totals."""

    def __init__(self, counts, statistic, rule):
        self.rows = counts.rows("false-alarms.csv", statistic=statistic, rule=rule, model="multinomial")

    def shares(self, **wanted):
        return [share_of(row) for row in self.rows
                if all(row[name] in (value if isinstance(value, tuple) else (value,)) for name, value in wanted.items())]

    def regions(self):
        """From which to which number of regions there are maps."""
        numbers = [int(row["regions"]) for row in self.rows]
        return f"{min(numbers):,} to {max(numbers):,}"

    def worst(self, sigma, averages):
        """The map with the most."""
        rows = [row for row in self.rows if row["sigma"] == sigma and row["expected"] in averages]
        return max(rows, key=share_of)["map"]

    def right_from(self, sigma):
        """The least expected count from which on every map has about the right share; none where there is no such."""
        right = None
        for average in reversed(AVERAGES):
            if not all(LOW <= one <= HIGH for one in self.shares(expected=average, sigma=sigma)):
                break
            right = average
        return right

    def not_shy_up_to(self, average):
        """The largest sigma up to which no map has too few."""
        last = None
        for sigma in SIGMAS:
            if any(one < LOW for one in self.shares(expected=average, sigma=sigma)):
                break
            last = sigma
        return last


def span(shares):
    low, high = 100 * min(shares), 100 * max(shares)
    return f"{low:.1f}" if f"{low:.1f}" == f"{high:.1f}" else f"{low:.1f} to {high:.1f}"


def verdict(shares):
    low, high = min(shares), max(shares)
    if low > HIGH:
        return "too eager"
    if high < LOW:
        return "too shy"
    if low >= LOW:
        return "about right" if high <= HIGH else "about right or too eager"
    return "about right or too shy" if high <= HIGH else "now too shy, now too eager"


INSTEAD = {"Freeman-Tukey": "Where it finds nothing with few cases, ask Rossi, or the adjusted U.",
           "Adjusted - Poisson": "Take Rossi or Freeman-Tukey in its place."}


def m_line(name, alarms):
    text = f"- **M of {name}** is {verdict(alarms.shares(sigma='1'))} at sigma 1: with 1, 5 and 100 expected it raises "
    text += ", ".join(span(alarms.shares(sigma="1", expected=average)) for average in ("1", "5", "100"))
    right = alarms.right_from("1")
    text += (f" false alarms in 100. It is about right on every map computed from {right} expected on. " if right else
             " false alarms in 100. Up to 100 expected, no count makes it about right on every map computed. ")
    return (text + INSTEAD.get(name, "")).rstrip()


def sigma_line(kinds):
    texts = []
    for name, alarms in kinds.items():
        last = alarms.not_shy_up_to("100")
        texts.append(f"{name} {'up to sigma ' + last if last else 'at no sigma'}")
    wide = [one for alarms in kinds.values() for one in alarms.shares(sigma="3", expected="100")]
    return (f"- **A wide bandwidth makes M shy**, since M\\* is too high there: at sigma 3 it raises {span(wide)} false "
            f"alarms in 100 with 100 expected, and finds less. No map is below {100 * LOW:g} in 100 for "
            + ", ".join(texts) + ".")


def sweep_line(kinds, score):
    shares = [f"{span(alarms.shares(sigma='range', expected='20'))} for {name}" for name, alarms in kinds.items()]
    return ("- **A sweep is many tests**: picking the best bandwidth of 0.2 to 2 raises, with 20 expected, "
            + ", ".join(shares) + f" (M) and {span(score.shares(sigma='range', expected='20'))} (its U) false alarms "
            "in 100. Hold the best value against [the simulated limits of a sweep](#limits-for-a-sweep) instead.")


def one_region(counts):
    def off(most):
        rows = [row for row in counts.rows("one-region.csv") if float(row["k"]) <= most]
        ratios = [100 * (float(row["run_length"]) / float(row["arl0"]) - 1) for row in rows]
        return f"{min(ratios):+.1f} to {max(ratios):+.1f} %"
    return (f"the run length of one region is off by {off(0.5)} for k up to 0.5, by {off(1)} for k up to 1")


def map_line(counts):
    def length(option, sigma, start="zero"):
        row = counts.row("run-lengths.csv", map="country", arl0="100", option=option, sigma=sigma, start=start)
        return rounded(mean_of(row)[0]) if row else "(not yet)"
    return (f"- **h is good for one region; for a map take Bonferroni or Spatial, not Overall Region**: {one_region(counts)}. "
            f"With 207 regions and 100 periods wanted, the first false alarm comes after {length('overall', '0')} periods with Overall Region, "
            f"{length('bonferroni', '0')} with Bonferroni at sigma 0, {length('bonferroni', '1')} with Bonferroni and "
            f"{length('spatial', '1')} with Spatial at sigma 1, {length('spatial', '0.5')} with Spatial at sigma 0.5 and "
            f"{length('spatial', '2')} at 2. A FIR start cuts Bonferroni at sigma 0 to {length('bonferroni', '0', 'FIR')}.")


def count_line(counts):
    def length(transform, average, map_name="one-region", option="overall"):
        row = counts.row("count-run-lengths.csv", map=map_name, transform=transform, expected=average, sigma="0",
                         option=option)
        return rounded(mean_of(row)[0]) if row else "(not yet)"
    return ("- **Small counts mislead the watch**: where 500 periods are wanted, one region with 5 expected has its first "
            f"false alarm after {length('poisson', '5')} with Poisson deviations (too eager), {length('rossi', '5')} with "
            f"Rossi, {length('standard', '5')} with Standard (too shy); with 100 expected after {length('poisson', '100')}, "
            f"{length('rossi', '100')} and {length('standard', '100')}. On a map, 207 regions with 5 expected "
            f"(Poisson deviations, Bonferroni, sigma 0) have theirs after {length('poisson', '5', 'country', 'bonferroni')}.")


def lines(counts):
    kinds = {name: Alarms(counts, f"M {statistic}", "above M* 0.05") for name, statistic in
             (("Freeman-Tukey", "Freeman-Tukey"), ("Rossi", "Rossi"), ("Adjusted - Poisson", "Pearson"))}
    score = Alarms(counts, "U adjusted", P_RULE)
    critical = Alarms(counts, "U adjusted", "chi above chi* 0.05")
    usual = ("5", "20", "100")
    return "\n".join([
        f"- **U of Adjusted - Poisson** is {verdict(score.shares(sigma='1', expected=usual))} by its chi-squared p-value, where U "
        f"lies above its mean: {span(score.shares(sigma='1', expected=usual))} false alarms in 100 at sigma 1 with 5 or "
        f"more expected, over all maps computed ({score.regions()} regions; the most on {score.worst('1', usual)}). Its *Critical Value* gives {span(critical.shares(sigma='1', expected=usual))}.",
        *(m_line(name, alarms) for name, alarms in kinds.items()),
        sigma_line(kinds), sweep_line(kinds, score), map_line(counts), count_line(counts)])
