"use strict";

// The picture. Each kind of motion is one object of lines, so that a long path takes no more calls than a
// short one.
const Scene = (() => {
  // The pattern of each kind, in pixels; none for a whole line.
  const KINDS = {
    rapid: { dash: 7, gap: 5 },
    feed: {},
    arc: {},
    cycle: { dash: 1.5, gap: 4 },
  };
  const DIRECTIONS = {
    top: [0, -1e-4, 1],
    front: [0, -1, 0],
    side: [1, 0, 0],
    corner: [-0.55, -0.75, 0.65],
  };
  const PICK_PIXELS = 8;
  const AXIS_PIXELS = 46;

  // --- What is drawn of a path

  function boxOf(path) {
    const low = [Infinity, Infinity, Infinity];
    const high = [-Infinity, -Infinity, -Infinity];
    const take = (point) => point.forEach((value, i) => {
      low[i] = Math.min(low[i], value);
      high[i] = Math.max(high[i], value);
    });
    path.point.forEach((point) => point && take(point));
    for (const element of path.arc.keys()) Path.pointsOf(path, element).forEach(take);
    return low[0] === Infinity ? null : { low, high };
  }

  // All chords of a kind: their ends about a middle, how far they are from the start of their motion, and
  // the elements that they belong to.
  function chordsOf(path, kind, middle) {
    const ends = [];
    const distances = [];
    const elements = [];
    for (let element = 0; element < path.count; ++element) {
      if (path.kind[element] !== kind || !Path.isMotion(path, element)) continue;
      let distance = 0;
      Path.pointsOf(path, element).reduce((a, b) => {
        for (let i = 0; i < 3; ++i) ends.push(a[i] - middle[i]);
        for (let i = 0; i < 3; ++i) ends.push(b[i] - middle[i]);
        const end = distance + Math.hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]);
        distances.push(distance, end);
        distance = end;
        elements.push(element);
        return b;
      });
    }
    return { ends: new Float32Array(ends), distances: new Float32Array(distances), elements: new Int32Array(elements) };
  }

  function linesOf(chords, { dash, gap }) {
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute("position", new THREE.BufferAttribute(chords.ends, 3));
    geometry.setAttribute("color", new THREE.BufferAttribute(new Uint8Array(chords.ends.length), 3, true));
    const index = new THREE.BufferAttribute(new Uint32Array(chords.elements.length * 2), 1);
    geometry.setIndex(index);
    if (dash) geometry.setAttribute("lineDistance", new THREE.BufferAttribute(chords.distances, 1));
    const material = dash
      ? new THREE.LineDashedMaterial({ vertexColors: THREE.VertexColors, dashSize: dash, gapSize: gap })
      : new THREE.LineBasicMaterial({ vertexColors: THREE.VertexColors });
    const lines = new THREE.LineSegments(geometry, material);
    lines.frustumCulled = false;
    return lines;
  }

  // A sign of a point, drawn once and used for all of its kind.
  function signOf(draw) {
    const canvas = document.createElement("canvas");
    canvas.width = canvas.height = 32;
    const context = canvas.getContext("2d");
    context.strokeStyle = context.fillStyle = "#fff";
    context.lineWidth = 5;
    context.beginPath();
    draw(context);
    return new THREE.CanvasTexture(canvas);
  }
  const SIGNS = {
    ring: (context) => (context.arc(16, 16, 11, 0, 7), context.stroke()),
    cross: (context) => (context.moveTo(16, 3), context.lineTo(16, 29), context.moveTo(3, 16), context.lineTo(29, 16), context.stroke()),
    triangle: (context) => (context.moveTo(16, 2), context.lineTo(30, 28), context.lineTo(2, 28), context.fill()),
    disc: (context) => (context.arc(16, 16, 13, 0, 7), context.fill()),
  };

  // Points with a sign, of a size in pixels, where the tool is at `places`; they belong to `elements`.
  function pointsOf(path, places, middle, sign, size, elements = places) {
    const drawn = places.map((place, i) => [Path.placeAt(path, place), elements[i]]).filter(([point]) => point);
    const positions = new Float32Array(drawn.flatMap(([point]) => point.map((value, i) => value - middle[i])));
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute("position", new THREE.BufferAttribute(positions, 3));
    geometry.setIndex(new THREE.BufferAttribute(new Uint32Array(drawn.length), 1));
    const material = new THREE.PointsMaterial({
      size: size * devicePixelRatio, sizeAttenuation: false, map: signOf(SIGNS[sign]), transparent: true,
      depthTest: false, alphaTest: 0.3,
    });
    const points = new THREE.Points(geometry, material);
    points.frustumCulled = false;
    points.elements = drawn.map(([, element]) => element);
    return points;
  }

  // A line along the tool axis at each motion, of a length that is a share of the path's.
  function axisLinesOf(path, middle, size) {
    const ends = [];
    for (let element = 0; element < path.count; ++element) {
      const axis = Path.axisAt(path, element);
      const point = path.point[element];
      if (!axis || !point) continue;
      for (let i = 0; i < 3; ++i) ends.push(point[i] - middle[i]);
      for (let i = 0; i < 3; ++i) ends.push(point[i] - middle[i] + axis[i] * size);
    }
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute("position", new THREE.BufferAttribute(new Float32Array(ends), 3));
    const lines = new THREE.LineSegments(geometry, new THREE.LineBasicMaterial({ transparent: true, opacity: 0.5 }));
    lines.frustumCulled = false;
    return lines;
  }

  // Elements with arcs, or with places of cycles.
  function elementsOf(path, kind) {
    const elements = [];
    path.kind.forEach((each, i) => each === kind && elements.push(i));
    return elements;
  }

  // Both ends of each arc.
  function ringsOf(path, middle) {
    const arcs = elementsOf(path, "arc");
    const places = arcs.concat(arcs.map((element) => path.from[element]));
    return pointsOf(path, places, middle, "ring", 6, arcs.concat(arcs));
  }

  // The thick line of the chosen motion, its ends and the tool axis there.
  function chosenOf() {
    const group = new THREE.Group();
    const line = new THREE.LineSegments2(new THREE.LineSegmentsGeometry(), new THREE.LineMaterial({ linewidth: 5 }));
    line.frustumCulled = false;
    line.visible = false;
    const end = new THREE.Points(new THREE.BufferGeometry(), new THREE.PointsMaterial({
      size: 13 * devicePixelRatio, sizeAttenuation: false, map: signOf(SIGNS.disc), transparent: true, depthTest: false, alphaTest: 0.3,
    }));
    end.geometry.setAttribute("position", new THREE.BufferAttribute(new Float32Array(3), 3));
    end.frustumCulled = false;
    end.visible = false;
    const arrow = new THREE.ArrowHelper(new THREE.Vector3(0, 0, 1), new THREE.Vector3(), 1);
    arrow.visible = false;
    for (const part of [line, end, arrow]) part.renderOrder = 2;
    line.material.depthTest = false;
    group.add(line, end, arrow);
    return Object.assign(group, { line, end, arrow });
  }

  // --- The picture

  function create(path, onPick) {
    const canvas = document.getElementById("canvas");
    const renderer = new THREE.WebGLRenderer({ canvas, antialias: true, alpha: true });
    renderer.setPixelRatio(devicePixelRatio);
    const box = boxOf(path) ?? { low: [0, 0, 0], high: [1, 1, 1] };
    const middle = box.low.map((low, i) => (low + box.high[i]) / 2);
    const size = Math.max(1e-3, Math.hypot(...box.high.map((high, i) => high - box.low[i])));
    const scene = new THREE.Scene();
    const camera = new THREE.OrthographicCamera(-1, 1, 1, -1, -size * 20, size * 20);
    camera.up.set(0, 0, 1);
    const controls = new THREE.OrbitControls(camera, canvas);
    controls.enableKeys = false;
    controls.screenSpacePanning = true;
    controls.minZoom = 1e-3;
    controls.maxZoom = 1e6;

    const kinds = {};
    for (const [kind, pattern] of Object.entries(KINDS)) {
      const chords = chordsOf(path, kind, middle);
      kinds[kind] = { chords, lines: linesOf(chords, pattern), isShown: true };
      scene.add(kinds[kind].lines);
    }
    const extras = {
      arc: ringsOf(path, middle),
      cycle: pointsOf(path, elementsOf(path, "cycle"), middle, "cross", 13),
      findings: pointsOf(path, [...path.findingsOf.keys()], middle, "triangle", 15),
      axes: axisLinesOf(path, middle, size / 18),
    };
    extras.axes.visible = path.axes.length > 1;
    const chosen = chosenOf();
    const origin = new THREE.AxesHelper(1);
    origin.position.set(-middle[0], -middle[1], -middle[2]);
    origin.material.depthTest = false;
    scene.add(extras.arc, extras.cycle, extras.findings, extras.axes, chosen, origin);
    const hiddenTools = new Set();
    let showsFindings = true;
    let isAsked = false;
    // Until someone moves the picture, all of it is in sight in any window.
    let isWhole = true;

    // How many pixels a unit of length is.
    const scale = () => (camera.zoom * canvas.clientHeight) / (camera.top - camera.bottom);

    function draw() {
      isAsked = false;
      for (const { lines } of Object.values(kinds)) {
        if (lines.material.isLineDashedMaterial) lines.material.scale = scale();
      }
      const unit = 1 / scale();
      origin.scale.setScalar(AXIS_PIXELS * unit);
      chosen.arrow.setLength(1.6 * AXIS_PIXELS * unit, 14 * unit, 9 * unit);
      renderer.render(scene, camera);
      canvas.dataset.calls = renderer.info.render.calls;
      canvas.dataset.triangles = renderer.info.render.triangles;
      canvas.dataset.lines = renderer.info.render.lines;
      canvas.dataset.points = renderer.info.render.points;
      placeLetters(unit);
    }

    function ask() {
      if (!isAsked) requestAnimationFrame(draw);
      isAsked = true;
    }

    // The letters at the ends of the axes in the zero of the path.
    function placeLetters(unit) {
      ["x", "y", "z"].forEach((name, i) => {
        const end = origin.position.clone();
        end.setComponent(i, end.getComponent(i) + (AXIS_PIXELS + 9) * unit);
        end.project(camera);
        const letter = document.getElementById(`axis-${name}`);
        const x = ((end.x + 1) / 2) * canvas.clientWidth - 4;
        const y = ((1 - end.y) / 2) * canvas.clientHeight - 9;
        letter.style.transform = `translate(${x.toFixed(1)}px, ${y.toFixed(1)}px)`;
        letter.hidden = Math.abs(end.x) > 1 || Math.abs(end.y) > 1;
      });
    }

    // Draws those parts of an object, of so many vertices each, that belong to tools which are not hidden.
    function select(object, elements, vertices, isShown) {
      const { geometry } = object;
      let count = 0;
      elements.forEach((element, i) => {
        if (hiddenTools.has(path.tool[element])) return;
        for (let vertex = 0; vertex < vertices; ++vertex) geometry.index.array[count++] = vertices * i + vertex;
      });
      geometry.index.needsUpdate = true;
      geometry.setDrawRange(0, count);
      object.visible = isShown && count > 0;
    }

    function selectAll() {
      for (const { chords, lines, isShown } of Object.values(kinds)) select(lines, chords.elements, 2, isShown);
      select(extras.arc, extras.arc.elements, 1, kinds.arc.isShown);
      select(extras.cycle, extras.cycle.elements, 1, kinds.cycle.isShown);
      select(extras.findings, extras.findings.elements, 1, showsFindings);
      ask();
    }

    function paint() {
      const tools = Array.from({ length: 8 }, (_, i) => new THREE.Color(Colours.named(`tool-${i}`)));
      for (const { chords, lines } of Object.values(kinds)) {
        const colours = lines.geometry.attributes.color;
        chords.elements.forEach((element, i) => {
          const { r, g, b } = tools[Colours.indexOf(path.tool[element])];
          for (let end = 0; end < 2; ++end) colours.array.set([r * 255, g * 255, b * 255], 6 * i + 3 * end);
        });
        colours.needsUpdate = true;
      }
      extras.arc.material.color.set(Colours.named("quiet"));
      extras.cycle.material.color.set(Colours.named("ink"));
      extras.findings.material.color.set(Colours.named("warning"));
      extras.axes.material.color.set(Colours.named("quiet"));
      chosen.line.material.color.set(Colours.named("ink"));
      chosen.end.material.color.set(Colours.named("ink"));
      chosen.arrow.setColor(new THREE.Color(Colours.named("ink")));
      ask();
    }

    function resize() {
      const width = canvas.clientWidth || 1;
      const height = canvas.clientHeight || 1;
      renderer.setSize(width, height, false);
      camera.left = (-size * width) / height / 2;
      camera.right = -camera.left;
      camera.top = size / 2;
      camera.bottom = -camera.top;
      camera.updateProjectionMatrix();
      chosen.line.material.resolution.set(width, height);
      if (isWhole) look();
      ask();
    }

    // Looks at the whole path, from one of the directions or as before.
    function look(name) {
      const direction = name ? new THREE.Vector3(...DIRECTIONS[name])
        : camera.position.clone().sub(controls.target);
      controls.target.set(0, 0, 0);
      camera.position.copy(direction.normalize().multiplyScalar(size));
      camera.zoom = 1;
      camera.lookAt(controls.target);
      camera.updateMatrixWorld();
      camera.zoom = zoomToFit();
      camera.updateProjectionMatrix();
      controls.update();
      isWhole = true;
      ask();
    }

    // The zoom with which the corners of the box are in sight.
    function zoomToFit() {
      camera.updateProjectionMatrix();
      let reach = 1e-6;
      for (let corner = 0; corner < 8; ++corner) {
        const point = new THREE.Vector3(...[0, 1, 2].map((i) => (corner & (1 << i) ? box.high : box.low)[i] - middle[i]));
        point.project(camera);
        reach = Math.max(reach, Math.abs(point.x), Math.abs(point.y));
      }
      return 0.9 / reach;
    }

    function zoom(factor) {
      isWhole = false;
      camera.zoom *= factor;
      camera.updateProjectionMatrix();
      ask();
    }

    function turn(right, up) {
      isWhole = false;
      const offset = camera.position.clone().sub(controls.target);
      const place = new THREE.Spherical().setFromVector3(new THREE.Vector3(offset.x, offset.z, -offset.y));
      place.theta += right;
      place.phi = Math.min(Math.PI - 1e-4, Math.max(1e-4, place.phi - up));
      const turned = new THREE.Vector3().setFromSpherical(place);
      camera.position.copy(controls.target).add(new THREE.Vector3(turned.x, -turned.z, turned.y));
      controls.update();
      ask();
    }

    function choose(element) {
      const points = element >= 0 && Path.isMotion(path, element) ? Path.pointsOf(path, element) : [];
      chosen.line.visible = points.length > 1;
      if (chosen.line.visible) {
        const ends = [];
        points.reduce((a, b) => (ends.push(...a.map((v, i) => v - middle[i]), ...b.map((v, i) => v - middle[i])), b));
        chosen.line.geometry.dispose();
        chosen.line.geometry = new THREE.LineSegmentsGeometry().setPositions(ends);
      }
      const point = element >= 0 ? Path.placeAt(path, element) : null;
      chosen.end.visible = point !== null;
      const axis = point && Path.axisAt(path, element);
      chosen.arrow.visible = Boolean(axis);
      if (point) {
        const place = new THREE.Vector3(...point.map((value, i) => value - middle[i]));
        chosen.end.geometry.attributes.position.copyVector3sArray([place]).needsUpdate = true;
        chosen.arrow.position.copy(place);
      }
      if (axis) chosen.arrow.setDirection(new THREE.Vector3(...axis).normalize());
      ask();
    }

    // The element whose chord is nearest to a place of the canvas; -1 when none is near.
    function elementAt(x, y) {
      const matrix = new THREE.Matrix4().multiplyMatrices(camera.projectionMatrix, camera.matrixWorldInverse).elements;
      const width = canvas.clientWidth / 2;
      const height = canvas.clientHeight / 2;
      const nearest = { distance: PICK_PIXELS, depth: 2, element: -1 };
      for (const { chords, lines } of Object.values(kinds)) {
        if (!lines.visible) continue;
        for (let i = 0; i < chords.elements.length; ++i) {
          if (hiddenTools.has(path.tool[chords.elements[i]])) continue;
          const [ax, ay, az] = projected(matrix, chords.ends, 6 * i, width, height);
          const [bx, by] = projected(matrix, chords.ends, 6 * i + 3, width, height);
          const distance = distanceTo(x, y, ax, ay, bx, by);
          const isNearer = distance < nearest.distance - 0.5 || (distance < nearest.distance + 0.5 && az < nearest.depth);
          if (distance > PICK_PIXELS || !isNearer) continue;
          Object.assign(nearest, { distance, depth: az, element: chords.elements[i] });
        }
      }
      return nearest.element;
    }

    let pressed = null;
    canvas.addEventListener("pointerdown", (event) => (pressed = [event.clientX, event.clientY]));
    canvas.addEventListener("click", (event) => {
      const isDragged = pressed && Math.hypot(event.clientX - pressed[0], event.clientY - pressed[1]) > 4;
      if (!isDragged) onPick(elementAt(event.offsetX, event.offsetY));
    });
    controls.addEventListener("change", ask);
    controls.addEventListener("start", () => (isWhole = false));
    new ResizeObserver(resize).observe(canvas.parentElement);

    look("corner");
    resize();
    paint();
    selectAll();
    return {
      box: boxOf(path), look, zoom, turn, choose, paint,
      showKind: (kind, isShown) => ((kinds[kind].isShown = isShown), selectAll()),
      showTool: (tool, isShown) => (isShown ? hiddenTools.delete(tool) : hiddenTools.add(tool), selectAll()),
      showAxes: (isShown) => ((extras.axes.visible = isShown), ask()),
      showFindings: (isShown) => ((showsFindings = isShown), selectAll()),
      hasAxes: path.axes.length > 0,
      showsAxes: () => extras.axes.visible,
    };
  }

  function projected(matrix, points, at, width, height) {
    const x = points[at];
    const y = points[at + 1];
    const z = points[at + 2];
    return [(matrix[0] * x + matrix[4] * y + matrix[8] * z + matrix[12] + 1) * width,
      (1 - (matrix[1] * x + matrix[5] * y + matrix[9] * z + matrix[13])) * height,
      matrix[2] * x + matrix[6] * y + matrix[10] * z + matrix[14]];
  }

  function distanceTo(x, y, ax, ay, bx, by) {
    const dx = bx - ax;
    const dy = by - ay;
    const share = Math.min(1, Math.max(0, ((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy || 1)));
    return Math.hypot(x - ax - share * dx, y - ay - share * dy);
  }

  return { create, KINDS };
})();
