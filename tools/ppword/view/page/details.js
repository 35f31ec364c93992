"use strict";

// What is said of the chosen line, of the findings and of the whole path. All texts of files go into the
// page as text, never as markup.
const Details = (() => {
  function make(name, text, className) {
    const element = document.createElement(name);
    if (text !== undefined) element.textContent = text;
    if (className) element.className = className;
    return element;
  }

  function heading(text) {
    return make("h2", text);
  }

  // A list of names and values; those without a value are left out.
  function facts(pairs) {
    const list = make("dl");
    for (const [name, value] of pairs) {
      if (value !== null && value !== "") list.append(make("dt", name), make("dd", value));
    }
    return list;
  }

  const number = (value) => (Math.abs(value) < 0.00005 ? 0 : value).toFixed(4);
  const coordinates = (names, values) => names.map((name, i) => `${name} ${number(values[i])}`).join("  ");
  const pointText = (point) => (point ? coordinates(["X", "Y", "Z"], point) : "");
  const axisText = (axis) => (axis ? coordinates(["I", "J", "K"], axis) : "");

  function placeText(path, element) {
    const file = path.data.files[path.file[element]] || path.data.input;
    const point = path.pointNumber[element];
    return `line ${path.inputLine[element]} of ${file}` + (point > 0 ? `, point ${point}` : "");
  }

  function instructionText(path, element) {
    const [name, sequence] = path.data.instructions[path.instruction[element]];
    return sequence === 1 ? name : `${name}, sequence ${sequence}`;
  }

  function originText(path, { origin }) {
    if (origin === "catalogue") return "the built-in catalogue";
    if (origin === "document") return `the document ${path.data.document}`;
    return `${path.data.table}:${origin.line}:${origin.column}`;
  }

  function motionFacts(path, element) {
    const isMotion = Path.isMotion(path, element);
    return [
      ["Motion", path.kind[element] === "none" ? "none" : path.kind[element]],
      ["From", isMotion ? pointText(path.point[path.from[element]]) : ""],
      [isMotion ? "To" : "Tool at", pointText(Path.placeAt(path, element))],
      ["Length", isMotion ? `${number(Path.lengthOf(path, element))} ${path.unit}`.trim() : ""],
      ["Tool axis", axisText(Path.axisAt(path, element))],
      ["Tool", path.data.tools[path.tool[element]]],
      ["Feed rate", path.data.feeds[path.feed[element]]],
    ];
  }

  function findingParts(finding) {
    const name = finding.name ? `: ${finding.name}` : "";
    return [make("span", `${Path.signOf(finding)} ${finding.severity} ${finding.key} `, finding.severity === "note" ? "hint" : "key"), `${finding.fault}${name}`];
  }

  function lineParts(path, line) {
    if (line < 0) return [make("p", "This motion has no line in the text.", "hint")];
    const source = path.data.sources[path.passes.sourceOf(line)];
    const passes = path.passes.textOf(line, path.lines[line]);
    return [
      make("pre", path.lines[line]),
      heading("Line of the table"),
      facts([["Place", originText(path, source)]]),
      make("pre", source.line),
      heading("What every pass did"),
      passes ? Object.assign(make("pre", passes, "passes"), { tabIndex: 0 })
        : make("p", "The passes of this line are not in the page; 'ppword explain --job' shows them.", "hint"),
    ];
  }

  function findingsOfElement(path, element) {
    const parts = (path.findingsOf.get(element) ?? []).map((finding) => {
      const paragraph = make("p");
      paragraph.append(...findingParts(finding), make("br"), make("span", finding.hint, "hint"));
      return paragraph;
    });
    return parts.length > 0 ? [heading("Here"), ...parts] : [];
  }

  // Shows an element and one of its lines, -1 for an element without lines.
  function show(path, element, line) {
    document.getElementById("details").replaceChildren(
      heading(line < 0 ? instructionText(path, element) : `Line ${line + 1}`),
      ...findingsOfElement(path, element),
      facts([["Instruction", instructionText(path, element)], ["Element", placeText(path, element)],
        ...motionFacts(path, element)]),
      ...lineParts(path, line));
  }

  function showNothing() {
    document.getElementById("details").replaceChildren(
      make("p", "Choose a line of the text or a motion of the picture.", "hint"));
  }

  // Where a finding is first, for one without places in the page too.
  function firstElement(path, finding) {
    if (finding.elements.length > 0) return finding.elements[0];
    if (finding.line === 0 || finding.file) return -1;
    return path.inputLine.findIndex((line) => line >= finding.line);
  }

  function findingText(finding) {
    const times = finding.count > 1 ? `${finding.count} times, first in ` : "in ";
    const place = finding.line > 0 ? `${times}line ${finding.line}${finding.file ? ` of ${finding.file}` : ""}`
      : `${finding.count} times`;
    const unmarked = finding.count - finding.elements.length;
    const isShort = finding.elements.length > 0 && unmarked > 0 && finding.elements.length >= 2;
    return ` (${place}${isShort ? `; ${unmarked} more than are marked` : ""})`;
  }

  function listFindings(path, onPick) {
    const list = document.getElementById("findings");
    list.append(heading(`Findings: ${path.findings.length}`));
    for (const finding of path.findings) {
      const element = firstElement(path, finding);
      const button = make("button", undefined, "finding");
      button.append(...findingParts(finding), make("span", findingText(finding), "hint"));
      button.title = `${finding.about} What to do: ${finding.hint}`;
      button.disabled = element < 0;
      button.addEventListener("click", () => onPick(element));
      list.append(button);
    }
    if (path.findings.length === 0) list.append(make("p", "Nothing is missing from the text.", "hint"));
  }

  function countOf(path, kind) {
    return path.kind.reduce((count, each) => count + (each === kind ? 1 : 0), 0);
  }

  function showOverview(path, box) {
    const range = (axis) => (box ? `${number(box.low[axis])} to ${number(box.high[axis])} ${path.unit}`.trim() : "");
    document.getElementById("overview").replaceChildren(
      heading("Tool path"),
      facts([["Input", path.data.input], ["Table", path.data.table], ["Document", path.data.document],
        ["Lines", String(path.lines.length)], ["Rapid", String(countOf(path, "rapid"))],
        ["Feed", String(countOf(path, "feed"))], ["Arcs", String(countOf(path, "arc"))],
        ["Cycle places", String(countOf(path, "cycle"))],
        ["X", range(0)], ["Y", range(1)], ["Z", range(2)]]));
  }

  function statusTexts(path, element, line) {
    if (element < 0) return [`${path.lines.length} lines, ${path.findings.length} findings`];
    return [line < 0 ? "no line" : `line ${line + 1} of ${path.lines.length}`, instructionText(path, element),
      pointText(Path.placeAt(path, element)), axisText(Path.axisAt(path, element)),
      path.data.tools[path.tool[element]] && `tool ${path.data.tools[path.tool[element]]}`,
      path.data.feeds[path.feed[element]] && `feed rate ${path.data.feeds[path.feed[element]]}`,
      path.kind[element] === "none" ? "no motion" : path.kind[element]];
  }

  function showStatus(path, element, line) {
    document.getElementById("status").replaceChildren(
      ...statusTexts(path, element, line).filter(Boolean).map((text) => make("span", text)));
  }

  return { make, show, showNothing, listFindings, showOverview, showStatus, firstElement };
})();
