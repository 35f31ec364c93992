"use strict";

// The tool path of the page's data: the lines of the text, the elements (an instruction at a point) and
// their motions. All are counted from 0.
const Path = (() => {
  const KINDS = ["none", "start", "rapid", "feed", "arc", "cycle"];
  // Chords of a whole turn, and of all arcs together.
  const CHORDS_OF_TURN = 72;
  const MOST_CHORDS = 3000000;

  // The shape of each element: instruction, kind of motion, how many lines.
  function readShapes(data, path) {
    const shapes = Columns.numbers(data.ofShape).map((shape) => data.shapes[shape]);
    path.count = shapes.length;
    path.instruction = shapes.map((shape) => shape[0]);
    path.kind = shapes.map((shape) => KINDS[shape[1]]);
    path.firstLine = new Int32Array(path.count + 1);
    shapes.forEach((shape, i) => (path.firstLine[i + 1] = path.firstLine[i] + shape[2]));
    path.elementOfLine = new Int32Array(path.firstLine[path.count]);
    for (let i = 0; i < path.count; ++i) {
      path.elementOfLine.fill(i, path.firstLine[i], path.firstLine[i + 1]);
    }
  }

  // The end of each motion, the element that the tool came from, and the last element with a point: where
  // the tool is.
  function readPoints(data, path) {
    const points = Columns.points(data.points, data.lengthParts);
    const centers = Columns.points(data.centers, data.lengthParts);
    const turns = Columns.points(data.turns, data.directionParts);
    path.point = new Array(path.count).fill(null);
    path.from = new Int32Array(path.count).fill(-1);
    path.place = new Int32Array(path.count).fill(-1);
    path.arc = new Map();
    let last = -1;
    let next = 0;
    path.kind.forEach((kind, i) => {
      path.place[i] = last;
      if (kind === "none") return;
      path.place[i] = i;
      path.point[i] = points[next++];
      if (kind === "arc") path.arc.set(i, { center: centers[path.arc.size], turn: turns[path.arc.size] });
      if (kind !== "start") path.from[i] = last;
      last = i;
    });
  }

  // The tool axis at each element; null until one is stated.
  function readAxes(data, path) {
    const axes = Columns.points(data.axes, data.directionParts);
    path.axes = axes;
    path.axis = new Int32Array(path.count).fill(-1);
    const places = Columns.sums(data.axisElements);
    places.forEach((place, i) => path.axis.fill(i, place, places[i + 1] ?? path.count));
  }

  function readFindings(data, path) {
    path.findings = data.findings.list.map((finding) => ({ ...finding, ...data.findings.kinds[finding.key], elements: [] }));
    path.findingsOf = new Map();
    const byNumber = new Map(path.findings.map((finding) => [finding.number, finding]));
    const numbers = Columns.numbers(data.findings.numbers);
    Columns.sums(data.findings.elements).forEach((element, i) => {
      const place = Math.min(element, path.count - 1);
      const finding = byNumber.get(numbers[i]);
      finding.elements.push(place);
      path.findingsOf.set(place, [...(path.findingsOf.get(place) ?? []), finding]);
    });
  }

  function read(data) {
    const path = { data, unit: data.unit ?? "" };
    path.lines = data.text.split("\n");
    path.lines.pop();
    path.passes = Passes.read(data.passes);
    readShapes(data, path);
    readPoints(data, path);
    readAxes(data, path);
    path.inputLine = Columns.sums(data.inputLines);
    path.file = Columns.filled(data.ofFile, path.count);
    path.pointNumber = Columns.filled(data.ofPoint, path.count);
    path.tool = Columns.filled(data.ofTool, path.count);
    path.feed = Columns.filled(data.ofFeed, path.count);
    readFindings(data, path);
    path.chordAngle = chordAngle(path);
    return path;
  }

  const isMotion = (path, element) => path.from[element] >= 0;
  const length = ([x, y, z]) => Math.hypot(x, y, z);
  const minus = (a, b) => [a[0] - b[0], a[1] - b[1], a[2] - b[2]];
  const dot = (a, b) => a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
  const cross = (a, b) => [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]];

  // How far a chord turns: more where the arcs of a path would have too many.
  function chordAngle(path) {
    let turns = 0;
    for (const { turn } of path.arc.values()) turns += length(turn);
    return Math.max((2 * Math.PI) / CHORDS_OF_TURN, turns / MOST_CHORDS);
  }

  // The vector turned about an axis of length 1.
  function turned(vector, axis, angle) {
    const along = dot(vector, axis);
    const side = cross(axis, vector);
    const cosine = Math.cos(angle);
    const sine = Math.sin(angle);
    return vector.map((value, i) => value * cosine + side[i] * sine + axis[i] * along * (1 - cosine));
  }

  // The ends of the chords of an arc, its start among them. What the arc is off its end, such as the
  // height of a helix, is spread over it.
  function chords(start, end, { center, turn }, chordAngle) {
    const angle = length(turn);
    const axis = turn.map((value) => value / angle);
    const radius = minus(start, center);
    const at = (share) => turned(radius, axis, angle * share).map((value, i) => value + center[i]);
    const rest = minus(end, at(1));
    const count = Math.max(2, Math.ceil(angle / chordAngle));
    const points = [start];
    for (let i = 1; i < count; ++i) {
      points.push(at(i / count).map((value, axisOfIt) => value + (rest[axisOfIt] * i) / count));
    }
    points.push(end);
    return points;
  }

  // The points that the tool goes through in the motion of an element.
  function pointsOf(path, element) {
    const start = path.point[path.from[element]];
    const end = path.point[element];
    const arc = path.arc.get(element);
    return arc ? chords(start, end, arc, path.chordAngle) : [start, end];
  }

  function lengthOf(path, element) {
    const points = pointsOf(path, element);
    let sum = 0;
    for (let i = 1; i < points.length; ++i) sum += length(minus(points[i], points[i - 1]));
    return sum;
  }

  // Of a note nothing has to be done.
  const signOf = (finding) => (finding.severity === "note" ? "•" : "▲");
  const placeAt = (path, element) => path.point[path.place[element]] ?? null;
  const axisAt = (path, element) => path.axes[path.axis[element]] ?? null;

  return { read, isMotion, pointsOf, lengthOf, placeAt, axisAt, signOf };
})();
