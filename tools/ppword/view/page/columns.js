"use strict";

// Columns of whole numbers, as tools/ppword/view/Columns.h writes them.
const Columns = (() => {
  function bytesOf(base64) {
    const text = atob(base64);
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < bytes.length; ++i) bytes[i] = text.charCodeAt(i);
    return bytes;
  }

  // Each number: seven bits a byte, the lowest first; the lowest bit is the sign.
  function numbers(base64) {
    const bytes = bytesOf(base64);
    const values = [];
    for (let at = 0; at < bytes.length;) {
      let bits = 0;
      for (let weight = 1, more = true; more; weight *= 128) {
        const byte = bytes[at++];
        bits += (byte & 127) * weight;
        more = byte > 127;
      }
      values.push(bits % 2 === 1 ? -(bits - 1) / 2 : bits / 2);
    }
    return values;
  }

  // Numbers of which the differences are stored.
  function sums(base64) {
    let sum = 0;
    return numbers(base64).map((step) => (sum += step));
  }

  // A value for each of `count` elements, from the elements where it changes; 0 before the first.
  function filled([elements, values], count) {
    const filled = new Int32Array(count);
    const changed = numbers(values);
    const places = sums(elements);
    places.forEach((place, i) => filled.fill(changed[i], place, places[i + 1] ?? count));
    return filled;
  }

  // Points, each in three columns, of which `parts` are one unit.
  function points(columns, parts) {
    const [x, y, z] = columns.map(sums);
    return x.map((value, i) => [value / parts, y[i] / parts, z[i] / parts]);
  }

  return { numbers, sums, filled, points };
})();
