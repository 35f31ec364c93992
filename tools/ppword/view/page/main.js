"use strict";

// The page: what is chosen, the keys, the legend, the search and the colours.
(() => {
  const byId = (id) => document.getElementById(id);
  const path = Path.read(JSON.parse(byId("data").textContent));
  const chosen = { element: -1, line: -1 };
  const search = { found: [], at: -1 };
  // How many tools the legend has.
  const MOST_TOOLS = 100;
  let list = null;
  let scene = null;

  // --- What is chosen

  function choose(element, line) {
    Object.assign(chosen, { element, line });
    list.choose(line);
    scene?.choose(element);
    if (element < 0) Details.showNothing();
    else Details.show(path, element, line);
    Details.showStatus(path, element, line);
  }

  const chooseLine = (line) => choose(path.elementOfLine[line], line);

  // The last of its lines: the move itself, where an instruction has lines before it.
  function chooseElement(element) {
    if (element < 0) return choose(-1, -1);
    const last = path.firstLine[element + 1] - 1;
    return choose(element, last < path.firstLine[element] ? -1 : last);
  }

  function stepLine(step) {
    if (path.lines.length === 0) return;
    const from = chosen.line >= 0 ? chosen.line : chosen.element >= 0 ? path.firstLine[chosen.element] : -1;
    chooseLine(Math.min(path.lines.length - 1, Math.max(0, from + step)));
  }

  // The next element, forwards or backwards, of which something is true.
  function stepElement(step, isOne) {
    const from = chosen.element < 0 && step < 0 ? path.count : chosen.element;
    for (let element = from + step; element >= 0 && element < path.count; element += step) {
      if (isOne(element)) return chooseElement(element);
    }
  }

  const stepMotion = (step) => stepElement(step, (element) => Path.isMotion(path, element));
  const stepFinding = (step) => stepElement(step, (element) => path.findingsOf.has(element));

  // --- The search

  function showMatches() {
    const { found, at } = search;
    const isEmpty = byId("search").value === "";
    byId("matches").textContent = isEmpty ? "" : found.length === 0 ? "not found" : `${at + 1} of ${found.length}`;
  }

  function find() {
    search.found = list.find(byId("search").value);
    search.at = search.found.findIndex((line) => line >= chosen.line);
    if (search.at < 0 && search.found.length > 0) search.at = 0;
    showMatches();
    if (search.at >= 0) chooseLine(search.found[search.at]);
  }

  function stepMatch(step) {
    const count = search.found.length;
    if (count === 0) return;
    search.at = (search.at + step + count) % count;
    showMatches();
    chooseLine(search.found[search.at]);
  }

  // --- Light and dark

  function isDark() {
    const theme = document.documentElement.dataset.theme;
    return theme ? theme === "dark" : matchMedia("(prefers-color-scheme: dark)").matches;
  }

  function switchTheme() {
    document.documentElement.dataset.theme = isDark() ? "light" : "dark";
    scene?.paint();
  }

  // --- The legend

  // A line as it is in the picture.
  function sample(kind) {
    const canvas = document.createElementNS("http://www.w3.org/2000/svg", "svg");
    canvas.setAttribute("class", "sample");
    canvas.setAttribute("viewBox", "0 0 34 12");
    const line = document.createElementNS("http://www.w3.org/2000/svg", "path");
    line.setAttribute("d", kind === "arc" ? "M6 10 A13 13 0 0 1 28 10" : "M2 6 H32");
    line.setAttribute("fill", "none");
    line.setAttribute("stroke", "currentColor");
    line.setAttribute("stroke-width", "1.6");
    const { dash, gap } = Scene.KINDS[kind];
    if (dash) line.setAttribute("stroke-dasharray", `${dash} ${gap}`);
    canvas.append(line);
    if (kind === "arc") canvas.append(ring(6), ring(28));
    return canvas;
  }

  function ring(x) {
    const circle = document.createElementNS("http://www.w3.org/2000/svg", "circle");
    for (const [name, value] of [["cx", x], ["cy", 9], ["r", 2], ["fill", "none"], ["stroke", "currentColor"]]) {
      circle.setAttribute(name, value);
    }
    return circle;
  }

  function swatch(tool) {
    const element = Details.make("span", "", "swatch");
    element.style.color = `var(--tool-${Colours.indexOf(tool)})`;
    return element;
  }

  function addChoice(box, id, isOn, text, picture, onChange) {
    const label = document.createElement("label");
    const input = document.createElement("input");
    input.type = "checkbox";
    input.id = id;
    input.checked = isOn;
    input.addEventListener("change", () => onChange(input.checked));
    label.append(input, ...picture, text);
    byId(box).append(label);
  }

  function fillLegend() {
    const names = { rapid: "Rapid", feed: "Feed", arc: "Arc", cycle: "Cycle places" };
    for (const [kind, name] of Object.entries(names)) {
      if (!path.kind.includes(kind)) continue;
      addChoice("kinds", `kind-${kind}`, true, `${name}  ${List.SIGNS[kind]}`, [sample(kind)], (isOn) => scene.showKind(kind, isOn));
    }
    if (scene.hasAxes) addChoice("kinds", "axes", scene.showsAxes(), "Tool axes (A)", [], scene.showAxes);
    if (path.findingsOf.size > 0) addChoice("kinds", "marks", true, "▲ Findings", [], scene.showFindings);
    const used = [...new Set(path.tool)];
    for (const tool of used.slice(0, MOST_TOOLS)) {
      const name = path.data.tools[tool] || "no tool";
      addChoice("tools", `tool-${tool}`, true, name, [swatch(tool)], (isOn) => scene.showTool(tool, isOn));
    }
    if (used.length > MOST_TOOLS) byId("tools").append(`and ${used.length - MOST_TOOLS} more tools`);
  }

  // --- Keys

  const press = (id) => byId(id)?.click();
  const KEYS = [
    ["ArrowDown", "next line", () => stepLine(1)],
    ["ArrowUp", "line before", () => stepLine(-1)],
    ["PageDown", "a page of lines down", () => stepLine(list.linesInSight())],
    ["PageUp", "a page of lines up", () => stepLine(-list.linesInSight())],
    ["Home", "first line", () => stepLine(-path.lines.length)],
    ["End", "last line", () => stepLine(path.lines.length)],
    ["ArrowRight", "next motion", () => stepMotion(1)],
    ["ArrowLeft", "motion before", () => stepMotion(-1)],
    ["w", "next finding", () => stepFinding(1)],
    ["W", "finding before", () => stepFinding(-1)],
    ["/", "search the text; Enter and Shift+Enter go on", () => byId("search").focus()],
    ["n", "next place of the search", () => stepMatch(1)],
    ["N", "place of the search before", () => stepMatch(-1)],
    ["f", "show all", () => scene?.look()],
    ["1", "from above", () => scene?.look("top")],
    ["2", "from the front", () => scene?.look("front")],
    ["3", "from the right", () => scene?.look("side")],
    ["4", "from the corner", () => scene?.look("corner")],
    ["+", "nearer", () => scene?.zoom(1.25)],
    ["-", "farther", () => scene?.zoom(0.8)],
    ["Shift+ArrowRight", "turn right", () => scene?.turn(0.1, 0)],
    ["Shift+ArrowLeft", "turn left", () => scene?.turn(-0.1, 0)],
    ["Shift+ArrowUp", "turn up", () => scene?.turn(0, 0.1)],
    ["Shift+ArrowDown", "turn down", () => scene?.turn(0, -0.1)],
    ["a", "tool axes on and off", () => press("axes")],
    ["l", "light or dark", switchTheme],
    ["Escape", "choose nothing", () => choose(-1, -1)],
    ["?", "these keys", () => byId("help").showModal()],
  ];

  function nameOf(event) {
    return event.shiftKey && event.key.startsWith("Arrow") ? `Shift+${event.key}` : event.key;
  }

  // Keys that what has the focus uses itself are left to it.
  function isTaken(event) {
    if (event.ctrlKey || event.altKey || event.metaKey || byId("help").open) return true;
    const target = event.target;
    if (target.id === "search") return true;
    const scrolls = /^(Arrow(Up|Down)|Page|Home|End)/.test(event.key);
    return scrolls && (target.id === "side" || target.closest?.("#legend"));
  }

  function onKey(event) {
    if (isTaken(event)) return;
    const row = KEYS.find(([key]) => key === nameOf(event));
    if (!row) return;
    event.preventDefault();
    row[2]();
  }

  function onSearchKey(event) {
    if (event.key === "Enter") stepMatch(event.shiftKey ? -1 : 1);
    if (event.key === "Escape") byId("lines").focus();
  }

  function fillHelp() {
    for (const [key, meaning] of KEYS) {
      const row = byId("keys").insertRow();
      const names = { " ": "Space", W: "Shift+W", N: "Shift+N" };
      row.insertCell().append(Details.make("kbd", names[key] ?? (key.length === 1 ? key.toUpperCase() : key)));
      row.insertCell().textContent = meaning;
    }
    byId("licence-text").textContent = byId("licence").textContent;
  }

  // --- The page

  function createScene() {
    try {
      return Scene.create(path, chooseElement);
    } catch (error) {
      byId("no-picture").hidden = false;
      byId("canvas").hidden = true;
      byId("legend").hidden = true;
      return null;
    }
  }

  function listen() {
    document.addEventListener("keydown", onKey);
    byId("search").addEventListener("input", find);
    byId("search").addEventListener("keydown", onSearchKey);
    byId("theme").addEventListener("click", switchTheme);
    byId("help-open").addEventListener("click", () => byId("help").showModal());
    byId("view-fit").addEventListener("click", () => scene?.look());
    for (const view of ["top", "front", "side", "corner"]) {
      byId(`view-${view}`).addEventListener("click", () => scene?.look(view));
    }
    matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => scene?.paint());
  }

  document.title = `${path.data.input} - tool path`;
  byId("title").textContent = path.data.input;
  list = List.create(path, chooseLine);
  scene = createScene();
  if (scene) fillLegend();
  fillHelp();
  listen();
  Details.listFindings(path, chooseElement);
  Details.showOverview(path, scene?.box);
  choose(-1, -1);
})();
