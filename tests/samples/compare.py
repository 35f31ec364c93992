"""Compares the motions of a text with the moves of a listing, one after the other."""

import math

import geometry
from geometry import add, cross, dot, unit
from plain import HALF_DIGIT, HALF_DIGIT_OF_AXES

# How far start and end of an arc may differ in radius, by the unit of the listing; in millimetres.
SAME_RADIUS = {1.0: 0.003, 25.4: 0.00762, 10.0: 0.003}
THIRD_OF_A_TURN = math.tau / 3
SAMPLES_OF_A_CHORD = 6


def near(found, wanted, place, tolerance=HALF_DIGIT):
    """Numbers that are equal but for the last printed digit; below 0.000001 a 0 is printed."""
    assert len(found) == len(wanted), f"{place}: {found} instead of {wanted}"
    for number, value in zip(found, wanted):
        if abs(number - value) > tolerance + 1e-9 and not (number == 0 and abs(value) < 1e-6):
            raise AssertionError(f"{place}: {found} instead of {wanted}")


def off_chord(point, begin, end):
    """How far a point is from the straight line between two others."""
    along, offset = add(end, begin, -1.0), add(point, begin, -1.0)
    length = dot(along, along)
    share = min(1.0, max(0.0, dot(offset, along) / length)) if length else 0.0
    return math.hypot(*add(offset, along, -share))


class Comparison:
    """Goes through moves and motions; `assert_same` fails at the first difference.

    `unit` has the millimetres of the text's unit, without it that of the first move. `rotary`,
    `chord`, `converts` and `chords_only` are the options of ppword: rotary axes, how far a chord
    may be from its arc in millimetres, whether all moves are in the system of the first one, and
    whether helices are chords. `rate_words` are the words of rates per minute and per turn.
    """

    def __init__(
        self,
        moves,
        text,
        unit=None,
        rotary=None,
        chord=0.01,
        converts=False,
        chords_only=False,
        rate_words="MMPM,MMPR",
    ):
        self.moves, self.text = moves, text
        self.unit = unit or (moves[0].scale if moves else 1.0)
        self.rotary = rotary
        self.chord = chord / self.unit + 3 * HALF_DIGIT
        self.first_system = moves[0].system if moves and converts else None
        # The system that NC_ORIGIN stated last; one that differs by rounding only needs no line.
        self.stated = geometry.System()
        self.chords_only = chords_only
        self.rate_words = rate_words.split(",")
        self.motions = iter(text.motions)
        self.counts = {"RAPID": 0, "FEED": 0, "CIRCLE": 0, "CYLNDR": 0, "HELIX": 0, "CHORDS": 0}

    def assert_same(self):
        for number, move in enumerate(self.moves):
            self.place = f"move {number}"
            motion = self.next_motion()
            self.placement = geometry.Placement(self.unit, move.system, self.first_system)
            if move.arc:
                self.arc(move, motion)
            else:
                self.straight(move, motion)
        assert next(self.motions, None) is None, "the text moves on"
        assert not self.text.rapid, "RAPID without a motion"
        assert self.text.multax == bool(self.rotary and self.moves)

    def next_motion(self):
        motion = next(self.motions, None)
        assert motion, f"{self.place}: the text ends"
        self.place = f"{self.place.split(',')[0]}, line {motion.line}"
        return motion

    def straight(self, move, motion):
        assert motion.word == "GOTO", f"{self.place}: {motion.word}"
        self.modal(move, motion)
        wanted = self.placement.point(move.end)
        near(motion.values, wanted + self.axis(move.words), self.place)
        self.counts[move.kind] += 1

    def axis(self, words):
        return geometry.tool_axis(self.rotary, words) if self.rotary else []

    def modal(self, move, motion):
        """RAPID, the feed rate and the coordinate system that are in force for a motion."""
        assert motion.is_rapid == (move.kind == "RAPID"), f"{self.place}: rapid or feed"
        if move.rate:
            assert motion.rate, f"{self.place}: no feed rate"
            self.rate(*move.rate, *motion.rate)
        self.origin(move, motion)

    def rate(self, millimetres, per_turn, found, found_word):
        word = self.rate_words[per_turn]
        near([found], [millimetres / (25.4 if word.startswith("IP") else 1.0)], self.place)
        assert found_word == word, f"{self.place}: {found_word}"

    def origin(self, move, motion):
        number, point, x_axis, y_axis = motion.origin
        if self.first_system:
            assert number == 1 and not any(point), f"{self.place}: ORIGIN"
            return
        assert number == move.system.number, f"{self.place}: ORIGIN {number}"
        if number != self.stated.number or not self.stated.is_same(move.system):
            self.stated = move.system
        system = self.stated
        near(point, [length / self.unit for length in system.to_machine([0, 0, 0])], self.place)
        near(x_axis, system.direction([1, 0, 0]), self.place, HALF_DIGIT_OF_AXES)
        near(y_axis, system.direction([0, 1, 0]), self.place, HALF_DIGIT_OF_AXES)

    def arc(self, move, motion):
        arc = move.arc.placed(self.placement)
        is_round = abs(move.arc.radius - move.arc.last_radius) <= SAME_RADIUS[move.scale] + 1e-9
        is_round = is_round and arc.radius > 0 and not self.rotary
        rises = abs(move.arc.rise) > 1e-9
        if not is_round or (rises and self.chords_only):
            self.chords(move, arc, motion)
        elif rises:
            self.helix(move, arc, motion)
        else:
            self.pieces(move, arc, motion)

    def slack(self, arc):
        """The angle that rounded points of an arc may be off."""
        return 4 * HALF_DIGIT / max(min(arc.radius, arc.last_radius), 1e-9) + 1e-9

    def tangent(self, arc, point):
        radial = add(point, arc.center, -1.0)
        radial = add(radial, arc.normal, -dot(radial, arc.normal))
        return unit(cross(arc.travel_axis(), radial))

    def pieces(self, move, arc, motion):
        """A circle in pieces of at most a third of a turn, which add up to it."""
        word = "CIRCLE" if abs(arc.normal[2]) > 0.5 else "CYLNDR"
        at, total, slack = arc.start, 0.0, self.slack(arc)
        while True:
            assert motion.word == word, f"{self.place}: {motion.word}"
            self.modal(move, motion)
            values = motion.values
            near(values[:7], arc.center + arc.travel_axis() + [arc.radius], self.place)
            near(values[7:10], self.tangent(arc, at), self.place, HALF_DIGIT + slack)
            near(values[10:13], values[13:], self.place, 0.0)
            swept = self.swept(arc, at, values[13:])
            assert 0 < swept <= THIRD_OF_A_TURN + slack, f"{self.place}: {swept}"
            at, total = values[13:], total + swept
            self.on_circle(arc, at)
            if total > arc.swept - slack:
                break
            motion = self.next_motion()
        near(at, arc.end, self.place)
        near([total], [arc.swept], self.place, slack)
        self.counts[word] += 1

    def swept(self, arc, begin, end):
        return arc.sense * (arc.angle(end) - arc.angle(begin)) % math.tau

    def on_circle(self, arc, point):
        tolerance = abs(arc.radius - arc.last_radius) + 2 * HALF_DIGIT
        near([arc.distance(point)], [arc.radius], self.place, tolerance)
        near([dot(add(point, arc.center, -1.0), arc.normal)], [0.0], self.place, 2 * HALF_DIGIT)

    def helix(self, move, arc, motion):
        assert motion.word == "HELIX", f"{self.place}: {motion.word}"
        self.modal(move, motion)
        up = [value * math.copysign(1.0, arc.rise) for value in arc.normal]
        values, turns = motion.values, arc.swept / math.tau
        near(values[:7], arc.center + up + [arc.radius], self.place)
        near(values[7:10], self.tangent(arc, arc.start), self.place)
        near(values[10:16], arc.end + arc.end, self.place)
        near(values[16:], [abs(arc.rise) / turns, turns], self.place)
        self.counts["HELIX"] += 1

    def chords(self, move, arc, motion):
        """Straight moves along a curve, nowhere further from it than the option allows."""
        at, total, slack = arc.start, 0.0, self.slack(arc)
        while True:
            assert motion.word == "GOTO", f"{self.place}: {motion.word}"
            self.modal(move, motion)
            point, last = motion.values[:3], total
            total += (self.swept(arc, arc.at(total / arc.swept), point) + slack) % math.tau - slack
            total = min(total, arc.swept)
            self.along(arc, last / arc.swept, total / arc.swept, at, point)
            self.words_along(move, arc, (last, total), motion.values[3:])
            at = point
            if total > arc.swept - slack:
                break
            motion = self.next_motion()
        near(at, arc.end, self.place)
        self.counts["CHORDS"] += 1

    def along(self, arc, last, share, begin, end):
        assert last < share, f"{self.place}: the way goes back"
        for step in range(1, SAMPLES_OF_A_CHORD + 1):
            point = arc.at(last + (share - last) * step / SAMPLES_OF_A_CHORD)
            off = off_chord(point, begin, end)
            assert off <= self.chord, f"{self.place}: {off} off the curve"

    def words_along(self, move, arc, angles, axis):
        """The tool axis of a chord's end: rotary words change evenly, by a degree at most."""
        if not self.rotary:
            return
        change = add(move.words, move.words_before, -1.0)
        last, share = (angle / arc.swept for angle in angles)
        doubt = self.slack(arc) / arc.swept
        most = max(map(abs, change))
        assert (share - last - doubt) * most <= 1.0, f"{self.place}: more than a degree"
        tolerance = HALF_DIGIT + doubt * math.radians(most)
        near(axis, self.axis(add(move.words_before, change, share)), self.place, tolerance)
