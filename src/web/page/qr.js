// A QR code (ISO/IEC 18004) for a short text: byte mode, error correction L, versions 1 to 5, which have one block each.

const DATA = [19, 34, 55, 80, 108]; // data codewords by version
const CHECK = [7, 10, 15, 20, 26]; // error correction codewords by version

const EXP = new Uint8Array(510), LOG = new Uint8Array(256); // of the field with 256 elements, polynomial 0x11d
for (let i = 0, x = 1; i < 255; ++i, x = x << 1 ^ (x & 128 ? 0x11d : 0)) {
  EXP[i] = EXP[i + 255] = x;
  LOG[x] = i;
}
const times = (a, b) => a && b ? EXP[LOG[a] + LOG[b]] : 0;

function checkWords(data, count) {
  let generator = [1];
  for (let i = 0; i < count; ++i) // times (x - 2^i)
    generator = [...generator, 0].map((c, k) => c ^ times(generator[k - 1] ?? 0, EXP[i]));
  const rest = [...data, ...Array(count).fill(0)];
  for (let i = 0; i < data.length; ++i)
    generator.forEach((c, k, all, factor = rest[i]) => k && (rest[i + k] ^= times(c, factor)));
  return rest.slice(data.length);
}

/** The rows of the picture, true for dark; null for a text that is too long. */
export function qr(text) {
  const bytes = new TextEncoder().encode(text);
  const version = DATA.findIndex(room => bytes.length + 2 <= room);
  if (version < 0)
    return null;
  const stream = [4, bytes.length >> 4, bytes.length & 15, ...[...bytes].flatMap(b => [b >> 4, b & 15]), 0]; // half bytes
  const data = Array.from({ length: stream.length >> 1 }, (_, i) => stream[2 * i] << 4 | stream[2 * i + 1]);
  for (let pad = 0xec; data.length < DATA[version]; pad ^= 0xec ^ 0x11)
    data.push(pad);
  const bits = [...data, ...checkWords(data, CHECK[version])].flatMap(b => [7, 6, 5, 4, 3, 2, 1, 0].map(i => b >> i & 1));

  const size = 21 + 4 * version, dark = Array.from({ length: size }, () => Array(size));
  const square = (row, column, reach, rings) => {
    for (let y = -reach; y <= reach; ++y)
      for (let x = -reach; x <= reach; ++x)
        if (row + y in dark && column + x >= 0 && column + x < size)
          dark[row + y][column + x] = rings.includes(Math.max(Math.abs(x), Math.abs(y)));
  };
  for (const [row, column] of [[3, 3], [3, size - 4], [size - 4, 3]])
    square(row, column, 4, [0, 1, 3]);
  if (version)
    square(size - 7, size - 7, 2, [0, 2]);
  for (let i = 8; i < size - 8; ++i)
    dark[6][i] = dark[i][6] = i % 2 === 0;
  dark[size - 8][8] = true;
  const format = 0b111011111000100; // level L with mask 0, its own check bits and mask in it
  for (let i = 0; i < 15; ++i) {
    const bit = Boolean(format >> i & 1);
    dark[i < 6 ? i : i < 8 ? i + 1 : size - 15 + i][8] = bit;
    dark[8][i < 8 ? size - 1 - i : i < 9 ? 7 : 14 - i] = bit;
  }
  let next = 0; // up and down in pairs of columns from the right, past the timing column
  for (let right = size - 1, up = true; right > 0; right -= 2, up = !up) {
    if (right === 6)
      --right;
    for (let i = 0; i < size; ++i)
      for (const column of [right, right - 1]) {
        const row = up ? size - 1 - i : i;
        if (dark[row][column] === undefined)
          dark[row][column] = Boolean((bits[next++] ?? 0) ^ ((row + column) % 2 === 0));
      }
  }
  return dark;
}
