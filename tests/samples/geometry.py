"""Vectors, coordinate systems and arcs of tool paths, written apart from ppword."""

import math

# For each plane of arcs the numbers of its first axis, its second axis and its normal.
PLANES = {"XY": (0, 1, 2), "YZ": (1, 2, 0), "XZ": (2, 0, 1)}

# Listings have four decimals.
HALF_OF_LAST_DIGIT = 0.00005


def add(left, right, factor=1.0):
    return [a + factor * b for a, b in zip(left, right)]


def is_near(left, right, doubt):
    return all(abs(a - b) <= doubt + 1e-9 for a, b in zip(left, right))


def dot(left, right):
    return sum(a * b for a, b in zip(left, right))


def cross(a, b):
    return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]


def unit(vector):
    length = math.hypot(*vector)
    return [value / length for value in vector]


def turned(vector, axis, degrees):
    """The vector, turned counterclockwise about the axis 0, 1 or 2 (X, Y or Z)."""
    first, second = (axis + 1) % 3, (axis + 2) % 3
    cos, sin = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    result = list(vector)
    result[first] = cos * vector[first] - sin * vector[second]
    result[second] = sin * vector[first] + cos * vector[second]
    return result


def tool_axis(rotary, words):
    """The tool axis for rotary words a, b, c, by a text such as C:table:Z,A:table:X."""
    axis = [0.0, 0.0, 1.0]
    for part in reversed(rotary.split(",")):
        word, turns, about = part.split(":")
        sign = {"head": 1, "table": -1}[turns] * (-1 if about.startswith("-") else 1)
        axis = turned(axis, "XYZ".index(about[-1]), sign * words["ABC".index(word)])
    return axis


class System:
    """A coordinate system: its number, and machine = fixture + R (shift + program).

    The scales are the millimetres of the units in which a listing has the fixture and the shift.
    """

    def __init__(self, number=1, fixture=(0, 0, 0), shift=(0, 0, 0), rotation=0.0):
        self.number = number
        self.fixture, self.fixture_scale = list(fixture), 1.0
        self.shift, self.shift_scale = list(shift), 1.0
        self.rotation = rotation

    def changed(self, **members):
        system = System()
        system.__dict__.update(self.__dict__)
        system.__dict__.update(members)
        return system

    def is_same(self, other):
        """Whether the places are the same as far as the digits of a listing can say."""
        fixture_doubt = HALF_OF_LAST_DIGIT * (self.fixture_scale + other.fixture_scale)
        shift_doubt = HALF_OF_LAST_DIGIT * (self.shift_scale + other.shift_scale)
        return (
            is_near(self.fixture, other.fixture, fixture_doubt)
            and is_near(self.shift, other.shift, shift_doubt)
            and is_near([self.rotation], [other.rotation], 2 * HALF_OF_LAST_DIGIT)
        )

    def direction(self, vector):
        return turned(vector, 2, self.rotation)

    def to_machine(self, point):
        return add(self.fixture, self.direction(add(self.shift, point)))

    def to_program(self, point):
        turned_back = turned(add(point, self.fixture, -1.0), 2, -self.rotation)
        return add(turned_back, self.shift, -1.0)

    def direction_to_program(self, vector):
        return turned(vector, 2, -self.rotation)


class Arc:
    """A way about an axis: angle, radius and height change evenly from the start to the end."""

    def __init__(self, start, end, center, plane, turns):
        self.start, self.end = start, end
        self.first, self.second, self.normal = (
            [float(number == axis) for number in range(3)] for axis in PLANES[plane]
        )
        self.sense = 1 if turns > 0 else -1
        self.center = add(center, self.normal, dot(add(start, center, -1.0), self.normal))
        self.rise = dot(add(end, start, -1.0), self.normal)
        self.radius, self.last_radius = self.distance(start), self.distance(end)
        self.begin = self.angle(start)
        self.swept = self.sweep_to(end) + math.tau * (abs(turns) - 1)

    def local(self, point):
        offset = add(point, self.center, -1.0)
        return dot(offset, self.first), dot(offset, self.second)

    def distance(self, point):
        return math.hypot(*self.local(point))

    def angle(self, point):
        x, y = self.local(point)
        return math.atan2(y, x)

    def sweep_to(self, end):
        """The angle to the end: above 0, and a whole turn if start and end are the same place."""
        angle = self.sense * (self.angle(end) - self.begin)
        return (angle - 1e-9) % math.tau + 1e-9

    def around(self, angle, radius):
        """The vector from the axis at an angle."""
        vector = [radius * math.cos(angle) * value for value in self.first]
        return add(vector, self.second, radius * math.sin(angle))

    def at(self, share):
        """The point at a share, from 0 to 1, of the way."""
        radius = self.radius + share * (self.last_radius - self.radius)
        angle = self.begin + self.sense * share * self.swept
        point = add(self.center, self.around(angle, radius))
        return add(point, self.normal, share * self.rise)

    def travel_axis(self):
        """The normal from whose side the travel is counterclockwise."""
        return [self.sense * value for value in self.normal]

    def placed(self, placement):
        """The same arc in other coordinates."""
        arc = Arc.__new__(Arc)
        arc.__dict__.update(self.__dict__)
        for name in ("start", "end", "center"):
            setattr(arc, name, placement.point(getattr(self, name)))
        for name in ("first", "second", "normal"):
            setattr(arc, name, placement.direction(getattr(self, name)))
        for name in ("rise", "radius", "last_radius"):
            setattr(arc, name, getattr(self, name) / placement.unit)
        return arc


class Placement:
    """From millimetres in a system to the text's unit, in the same system or in another one."""

    def __init__(self, unit, system, text_system=None):
        self.unit = unit
        self.system = system
        is_other = text_system and not system.is_same(text_system)
        self.text_system = text_system if is_other else None

    def point(self, point):
        if self.text_system:
            point = self.text_system.to_program(self.system.to_machine(point))
        return [length / self.unit for length in point]

    def direction(self, vector):
        if self.text_system:
            vector = self.text_system.direction_to_program(self.system.direction(vector))
        return vector
