"""What a canonical listing moves, read apart from ppword, with the fate of each move.

`Motion(listing).moves` are the moves that a text must have, in millimetres and in the coordinates
of the program; `lost` counts those that no text can have, by the name of their call.
"""

import collections

import geometry
from listing import MILLIMETRES, calls_of, numbers

MOST_TURNS = 1000
LOST = {
    "NURBS_FEED",
    "NURB_FEED",
    "STRAIGHT_PROBE",
    "RIGID_TAP",
    "SPINDLE_RETRACT",
    "SPINDLE_RETRACT_TRAVERSE",
}
Move = collections.namedtuple("Move", "kind end words system rate arc words_before scale")


class Motion:
    """Obeys the calls of a listing and notes their moves."""

    def __init__(self, path, rotary=None):
        self.rotary = rotary
        self.moves = []
        self.lost = collections.Counter()
        self.scale = None
        self.plane = "XY"
        self.point, self.point_scale = None, None
        self.words = [0.0] * 3
        self.known = False
        self.rate, self.per_turn, self.pitch = None, False, None
        self.system = geometry.System()
        self.tool_offset = [0.0] * 6
        self.ended = False
        for name, arguments in calls_of(path):
            self.obey(name, arguments)

    def obey(self, name, arguments):
        if self.ended:
            return
        if name in LOST:
            self.lose(name)
            return
        action = getattr(self, name.lower(), None)
        if action:
            action(arguments)

    def lose(self, name):
        self.lost[name] += 1
        self.known = False

    def rate_in_force(self, end, words):
        """The rate and whether it is per turn; none for a move that only turns, in degrees."""
        only_turns = self.rotary and self.point == end and self.words != words
        if self.pitch:
            return self.pitch, True
        if only_turns and not self.per_turn:
            return None
        return self.rate, self.per_turn

    def go(self, kind, end, words, arc=None):
        rate = None if kind == "RAPID" else self.rate_in_force(end, words)
        self.moves.append(
            Move(kind, end, words, self.system, rate, arc, self.words, self.scale)
        )
        self.point, self.words, self.point_scale = end, words, self.scale
        self.known = True

    def straight(self, kind, arguments):
        words = numbers(arguments)
        self.go(kind, [self.scale * length for length in words[:3]], words[3:])

    def straight_traverse(self, arguments):
        self.straight("RAPID", arguments)

    def straight_feed(self, arguments):
        self.straight("FEED", arguments)

    def arc_feed(self, arguments):
        words = numbers(arguments)
        first, second, center_first, center_second, turns, height = words[:6]
        if not self.known or self.plane not in geometry.PLANES or abs(turns) > MOST_TURNS:
            self.lose("ARC_FEED")
            return
        end, center = [0.0] * 3, [0.0] * 3
        axes = geometry.PLANES[self.plane]
        for axis, length in zip(axes, (first, second, height)):
            end[axis] = length * self.scale
        for axis, length in zip(axes, (center_first, center_second)):
            center[axis] = length * self.scale
        if self.is_ambiguous(end, axes):
            self.lose("ARC_FEED")
            return
        arc = geometry.Arc(self.point, end, center, self.plane, turns)
        self.go("ARC", end, words[6:], arc)

    def is_ambiguous(self, end, axes):
        """After a change of the unit: whether the ends are the same point but for rounding."""
        if self.point_scale == self.scale:
            return False
        rounding = geometry.HALF_OF_LAST_DIGIT * (self.point_scale + self.scale)
        return all(abs(end[axis] - self.point[axis]) <= rounding for axis in axes[:2])

    def select_plane(self, arguments):
        self.plane = arguments.removeprefix("CANON_PLANE_")

    def set_feed_rate(self, arguments):
        self.rate = float(arguments) * self.scale

    def set_feed_mode(self, arguments):
        self.per_turn = numbers(arguments)[1] == 1

    def start_speed_feed_sync(self, arguments):
        self.pitch = numbers(arguments)[0] * self.scale

    def stop_speed_feed_synch(self, _):
        self.pitch = None

    def use_length_units(self, arguments):
        self.scale = MILLIMETRES[arguments]

    def change_system(self, **members):
        """A change of the coordinate system: the program's coordinates of the tool are unknown."""
        system = self.system.changed(**members)
        self.known = self.known and system.is_same(self.system)
        self.system = system

    def set_g5x_offset(self, arguments):
        words = numbers(arguments)
        fixture = [length * self.scale for length in words[1:4]]
        self.change_system(number=int(words[0]), fixture=fixture, fixture_scale=self.scale)

    def set_g92_offset(self, arguments):
        shift = [length * self.scale for length in numbers(arguments)[:3]]
        self.change_system(shift=shift, shift_scale=self.scale)

    def set_xy_rotation(self, arguments):
        self.change_system(rotation=float(arguments))

    def use_tool_length_offset(self, arguments):
        offset = [length * self.scale for length in numbers(arguments)[:6]]
        self.known = self.known and offset == self.tool_offset
        self.tool_offset = offset

    def program_end(self, _):
        self.ended = True

    finish = program_end
