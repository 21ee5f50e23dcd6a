"""Draws what each preset costs and gives, one panel for each kind of picture, as SVG."""

WIDTH, HEIGHT, MARGIN, TITLE = 300, 260, 46, 40
COLOURS = {"standard": "#1d6fd1", "smaller": "#c0620c", "tiny": "#2f8a3e"}


def line_path(points):
    return "M" + " L".join(f"{x:.1f} {y:.1f}" for x, y in points)


def text(x, y, words, anchor="middle", colour="#444", extra=""):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{colour}"{extra}>{words}</text>'


class Axis:
    """Values along one side of a panel, with room around them."""

    def __init__(self, values, begin, end):
        room = (max(values) - min(values)) * 0.12 or 1
        self.low, self.high = min(values) - room, max(values) + room
        self.begin, self.end = begin, end

    def at(self, value):
        return self.begin + (value - self.low) / (self.high - self.low) * (self.end - self.begin)

    def ticks(self):
        step = next(step for step in (0.1, 0.2, 0.5, 1, 2, 5, 10, 20) if (self.high - self.low) / step <= 6)
        first = int(self.low / step) + 1
        return [first * step + number * step for number in range(8) if first * step + number * step < self.high]


def frame(x_axis, y_axis, title):
    left, right, bottom, top = x_axis.begin, x_axis.end, y_axis.begin, y_axis.end
    parts = [f'<rect x="{left}" y="{top}" width="{right - left}" height="{bottom - top}" fill="none" stroke="#bbb"/>',
             text((left + right) / 2, top - 8, title, colour="#111", extra=' font-weight="bold"')]
    for value in x_axis.ticks():
        parts.append(text(x_axis.at(value), bottom + 14, f"{value:g}"))
    for value in y_axis.ticks():
        y = y_axis.at(value)
        parts += [f'<line x1="{left}" x2="{right}" y1="{y:.1f}" y2="{y:.1f}" stroke="#e6e6e6"/>',
                  text(left - 5, y + 3, f"{value:g}", "end")]
    return parts


def panel(number, picture, curves, names):
    """curves: for each quality the points (CPU seconds, PSNR) of the named presets."""
    left = number * (WIDTH + MARGIN) + MARGIN
    points = [point for curve in curves.values() for point in curve]
    x_axis = Axis([x for x, _ in points], left, left + WIDTH)
    y_axis = Axis([y for _, y in points], TITLE + HEIGHT, TITLE)
    parts = frame(x_axis, y_axis, picture)
    for quality, curve in curves.items():
        colour = COLOURS[quality]
        places = [(x_axis.at(x), y_axis.at(y)) for x, y in curve]
        parts.append(f'<path d="{line_path(places)}" fill="none" stroke="{colour}" stroke-width="1.5"/>')
        for (x, y), name in zip(places, names):
            parts.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="3" fill="{colour}">'
                         f"<title>{name}, {quality}</title></circle>")
        if quality == "standard":
            parts += [text(x, y + (15 if index % 2 else -7), name.split()[-1], colour=colour, extra=' font-size="9"')
                      for index, ((x, y), name) in enumerate(zip(places, names))]  # in turns: neighbours may be close
    return parts


def plot(results, names):
    """results: by (picture, quality), then by name, the figures "CPU s" and "PSNR"."""
    pictures = list(dict.fromkeys(picture for picture, _ in results))
    width = len(pictures) * (WIDTH + MARGIN) + MARGIN
    height = TITLE + HEIGHT + 60
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
             'font-family="sans-serif" font-size="11">', f'<rect width="{width}" height="{height}" fill="#fff"/>']
    for number, picture in enumerate(pictures):
        curves = {quality: [(figures[name]["CPU s"], figures[name]["PSNR"]) for name in names]
                  for (shown, quality), figures in results.items() if shown == picture}
        parts += panel(number, picture, curves, names)
    parts.append(text(width / 2, TITLE + HEIGHT + 32, "processor seconds for the clip; upwards: PSNR in dB"))
    for number, (quality, colour) in enumerate(COLOURS.items()):
        x = width / 2 + (number - 1) * 90
        parts += [f'<circle cx="{x - 32}" cy="{height - 12}" r="4" fill="{colour}"/>',
                  text(x - 24, height - 8, quality, "start")]
    return "\n".join([*parts, "</svg>"]) + "\n"
