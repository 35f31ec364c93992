"use strict";

// What every pass did for a line: its form, with the numbers of the line in their places
// (tools/ppword/view/PassForms.cpp).
const Passes = (() => {
  const NUMBER = / *[-+]?(?:\d+\.?\d*|\.\d+)/g;
  const FIRST_INDEX = 33;

  // Without the zeros and the sign that say nothing.
  function shortened(bare) {
    const sign = bare.startsWith("-") ? "-" : "";
    let digits = bare.replace(/^[-+]/, "").replace(/^0+(?=[0-9])/, "");
    if (digits.includes(".")) digits = digits.replace(/0+$/, "").replace(/\.$/, "");
    return sign + (digits === "" || digits.startsWith(".") ? "0" : "") + digits;
  }

  function valueOf(mark, number) {
    const bare = number.trimStart();
    return mark === "\u0001" ? number : mark === "\u0002" ? bare : shortened(bare);
  }

  function read(data) {
    const forms = data.forms;
    const ofLine = Columns.sums(data.ofLine);
    const texts = data.own.split("\n");
    const own = new Map(Columns.sums(data.ownLines).map((line, i) => [line, texts[i].split(",")]));

    // The text of `explain` for a line, counted from 0; empty when its form is not stored.
    function textOf(line, text) {
      const numbers = text.match(NUMBER) ?? [];
      const ofItsOwn = (own.get(line) ?? [])[Symbol.iterator]();
      return forms[ofLine[line]][1].replace(/[\u0001-\u0003]([^])|\u0004/g, (place, index) =>
        place === "\u0004" ? ofItsOwn.next().value
          : valueOf(place[0], numbers[index.charCodeAt(0) - FIRST_INDEX]));
    }

    return { textOf, sourceOf: (line) => forms[ofLine[line]][0] };
  }

  return { read };
})();
