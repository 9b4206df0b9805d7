"""Lists that are kept beside a test: what it lets pass, and why. A line is an entry of fields between " | "; empty lines and those
that begin with # are none."""
import sys


def entries(path, form):
    """The entries as tuples. `form` names the fields, "FILE | TEXT | REASON"; a line of another form ends the program."""
    size = form.count(" | ") + 1
    found = []
    with open(path, encoding="utf-8") as lines:
        for number, line in enumerate(lines, 1):
            if not line.strip() or line.startswith("#"):
                continue
            fields = [field.strip() for field in line.split(" | ")]
            if len(fields) != size or not all(fields):
                sys.exit(f"{path}:{number}: not {form}")
            found.append(tuple(fields))
    return found
