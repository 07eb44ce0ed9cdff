"""A dataset of points: what its file says, where its points are plotted, and the area of their hull."""

from number_text import Refused, RunTimeStop, int32, number, round_to_int32, single


class Dataset:
    """ids, x, y, observed, expected and expected proportions, each a list from 0."""

    def __init__(self, path, population):
        with open(path, encoding="utf-8-sig", newline="") as file:
            text = file.read().replace("\r\n", "\n").replace("\r", "\n")
        lines = text.split("\n")
        if lines[-1] == "":
            lines.pop()
        if len(lines[0].split(",")) != 5:
            raise Refused("Data does not fit the required format. Check the data and requirement, please.")
        self.ids, self.x, self.y, first, second = [], [], [], [], []
        for line in lines:
            fields = line.split(",")
            if len(fields) < 5:
                raise RunTimeStop(9)
            self.ids.append(fields[0])
            self.x.append(number(fields[1]))
            self.y.append(number(fields[2]))
            first.append(number(fields[3]))
            second.append(number(fields[4]))
        self.n = len(lines)
        if population:
            total_pop = 0.0
            self.total_obs = 0.0
            for pop, cases in zip(first, second):
                total_pop += pop
                self.total_obs += cases
            self.obs = second
            self.exp = [(self.total_obs / total_pop) * pop for pop in first]
            self.ratio = [pop / total_pop for pop in first]
        else:
            self.total_obs = 0.0
            for obs in first:
                self.total_obs += obs
            self.obs = first
            self.exp = second
            self.ratio = [e / self.total_obs for e in second]


class Plot:
    """The points as whole pixels of the map, the scales of the map, and the area of their hull."""

    def __init__(self, data, surface, zoom):
        width, height, scale_width, scale_height = (single(s) for s in surface)
        margin_x = (max(data.x) - min(data.x)) / 20
        margin_y = (max(data.y) - min(data.y)) / 20
        view_x_min = min(data.x) - margin_x
        view_y_max = margin_y + max(data.y)
        view_width = abs((margin_x + max(data.x)) - (min(data.x) - margin_x))
        view_height = abs((margin_y + max(data.y)) - (min(data.y) - margin_y))
        self.points = []
        self.scale_x = self.scale_y = 0.0
        if view_width == 0 or view_height == 0:
            return
        aspect = view_height / view_width
        factor = single(height / width) * zoom
        if view_height < view_width:
            drawn_height = scale_width * aspect * factor
            drawn_width = scale_width * factor
        else:
            drawn_height = scale_height * factor
            drawn_width = scale_height / aspect * factor
        centre_x = scale_width / 2 - drawn_width / 2
        centre_y = scale_height / 2 - drawn_height / 2
        self.scale_x = drawn_width / view_width
        self.scale_y = drawn_height / view_height
        shift_x = -view_x_min
        shift_y = -(view_y_max - view_height)
        for x, y in zip(data.x, data.y):
            px = x * self.scale_x + shift_x * self.scale_x + centre_x
            py = -(y * self.scale_y + shift_y * self.scale_y) + drawn_height + centre_y
            self.points.append((round_to_int32(px), round_to_int32(py)))

    def study_area(self):
        hull = self.wrap()
        if len(hull) < 3:
            return 0.0
        total = 0.0
        for k in range(1, len(hull) - 1):
            (x1, y1), (x2, y2) = hull[k], hull[k + 1]
            total += 0.5 * (int32(x1 * y2) - int32(x2 * y1))
        return abs(total) * (1 / self.scale_x) * (1 / self.scale_y)

    def wrap(self):
        """Package wrapping; swaps the points of the hull to the front of the list."""
        p = self.points
        if not p:
            return []
        lowest = 0
        for i in range(1, len(p)):
            if p[i][1] < p[lowest][1] or (p[i][1] == p[lowest][1] and p[i][0] < p[lowest][0]):
                lowest = i
        p[0], p[lowest] = p[lowest], p[0]
        previous, m = 0.0, 1
        while True:
            smallest, kept = 360.0, None
            for i in range(m, len(p)):
                angle = pseudo_angle(p[m - 1], p[i])
                if previous <= angle < smallest:
                    smallest, kept = angle, i
            back = pseudo_angle(p[m - 1], p[0])
            if previous <= back <= smallest or kept is None:
                return p[:m]
            m += 1
            p[m - 1], p[kept] = p[kept], p[m - 1]
            previous = smallest


def pseudo_angle(a, b):
    dx, dy = single(b[0] - a[0]), single(b[1] - a[1])
    reach = single(abs(dx) + abs(dy))
    t = single(360.0 / 9.0) if reach == 0 else single(dy / reach)
    if dx < 0:
        t = single(2 - t)
    elif dy < 0:
        t = single(4 + t)
    return single(t * 90)
