"""Rows of a report: the median and the 99th percentile."""


def percentile(values, share):
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, round(share * (len(ordered) - 1)))]


def ms(value):
    return f"{value * 1e3:.1f} ms"


def row(what, values, form=ms):
    return f"| {what} | {form(percentile(values, 0.5))} | {form(percentile(values, 0.99))} |"
