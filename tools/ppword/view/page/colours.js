"use strict";

// The colours of the style sheet, and those of tools.
const Colours = (() => {
  // Tools are numbered from 1; 0 is none, and has the last colour. After seven they repeat.
  const OF_TOOLS = 7;
  const indexOf = (tool) => (tool === 0 ? OF_TOOLS : (tool - 1) % OF_TOOLS);

  // As it is now: light or dark.
  function named(name) {
    const probe = document.createElement("span");
    probe.style.color = `var(--${name})`;
    document.body.append(probe);
    const colour = getComputedStyle(probe).color;
    probe.remove();
    return colour;
  }

  return { indexOf, named };
})();
