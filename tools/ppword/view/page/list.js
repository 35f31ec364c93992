"use strict";

// The list of the text's lines, of which only those in sight are in the document.
const List = (() => {
  const HEIGHT = 20;
  const SIGNS = { none: "", start: "o", rapid: "--", feed: "—", arc: "(", cycle: "+" };

  function span(name, text) {
    const element = document.createElement("span");
    element.className = name;
    element.textContent = text;
    return element;
  }

  // The text with each place of the search marked.
  function marked(text, search) {
    const element = span("words", "");
    const lower = text.toLowerCase();
    let end = 0;
    for (let at = search ? lower.indexOf(search) : -1; at >= 0; at = lower.indexOf(search, end)) {
      element.append(text.slice(end, at));
      const mark = document.createElement("mark");
      mark.textContent = text.slice(at, at + search.length);
      element.append(mark);
      end = at + search.length;
    }
    element.append(text.slice(end));
    return element;
  }

  function create(path, onPick) {
    const box = document.getElementById("lines");
    const space = document.getElementById("space");
    let chosen = -1;
    let search = "";
    space.style.height = `${path.lines.length * HEIGHT}px`;

    function row(line) {
      const element = path.elementOfLine[line];
      const row = document.createElement("div");
      row.className = "row";
      row.id = `line-${line}`;
      row.setAttribute("role", "option");
      row.setAttribute("aria-selected", String(line === chosen));
      row.setAttribute("aria-posinset", String(line + 1));
      row.setAttribute("aria-setsize", String(path.lines.length));
      row.style.top = `${line * HEIGHT}px`;
      row.classList.toggle("together", chosen >= 0 && element === path.elementOfLine[chosen]);
      const isLast = line + 1 === path.firstLine[element + 1];
      const sign = span("sign", isLast ? SIGNS[path.kind[element]] : "");
      sign.style.color = `var(--tool-${Colours.indexOf(path.tool[element])})`;
      const findings = line === path.firstLine[element] ? path.findingsOf.get(element) ?? [] : [];
      const flag = span("flag", [...new Set(findings.map(Path.signOf))].sort().at(-1) ?? "");
      flag.title = findings.map((each) => each.fault).join("; ");
      row.append(span("number", String(line + 1)), flag, sign, marked(path.lines[line], search));
      row.addEventListener("click", () => onPick(line));
      return row;
    }

    function draw() {
      const first = Math.max(0, Math.floor(box.scrollTop / HEIGHT) - 5);
      const last = Math.min(path.lines.length, first + Math.ceil(box.clientHeight / HEIGHT) + 10);
      const rows = [];
      for (let line = first; line < last; ++line) rows.push(row(line));
      space.replaceChildren(...rows);
    }

    function scrollTo(line) {
      const top = line * HEIGHT;
      const isInSight = top >= box.scrollTop && top + HEIGHT <= box.scrollTop + box.clientHeight;
      if (!isInSight) box.scrollTop = top - box.clientHeight / 2 + HEIGHT / 2;
    }

    function choose(line) {
      chosen = line;
      if (line >= 0) scrollTo(line);
      draw();
      if (line >= 0) box.setAttribute("aria-activedescendant", `line-${line}`);
      else box.removeAttribute("aria-activedescendant");
    }

    function find(text) {
      search = text.toLowerCase();
      draw();
      const found = [];
      if (search) path.lines.forEach((line, i) => line.toLowerCase().includes(search) && found.push(i));
      return found;
    }

    box.addEventListener("scroll", () => requestAnimationFrame(draw));
    new ResizeObserver(draw).observe(box);
    draw();
    return { choose, find, linesInSight: () => Math.max(1, Math.floor(box.clientHeight / HEIGHT) - 1) };
  }

  return { create, SIGNS };
})();
