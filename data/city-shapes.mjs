// Random numbers and shapes for make-city.mjs.

let state = 20;
/** A random number from 0 to 1; the same ones on every machine. */
export function random() {
    state = state + 0x6d2b79f5 | 0;
    let value = Math.imul(state ^ state >>> 15, 1 | state);
    value = value + Math.imul(value ^ value >>> 7, 61 | value) ^ value;
    return ((value ^ value >>> 14) >>> 0) / 2 ** 32;
}
export const between = (low, high) => low + (high - low) * random();
export const chance = part => random() < part;
export const pick = list => list[Math.floor(random() * list.length)];

/** More points where the way between two is long, so that it bends. */
export function dense(points, step = 24) {
    const all = [points[0]];
    for (let i = 1; i < points.length; i++) {
        const [from, to] = [points[i - 1], points[i]];
        const pieces = Math.max(1, Math.ceil(Math.hypot(to[0] - from[0], to[1] - from[1]) / step));
        for (let part = 1; part <= pieces; part++)
            all.push([from[0] + (to[0] - from[0]) * part / pieces, from[1] + (to[1] - from[1]) * part / pieces]);
    }
    return all;
}

/** Without points that lie closer than half a metre to the line between those that stay. */
export function thinned(points, tolerance = 4e-6) {
    if (points.length < 3)
        return points;
    const [a, b] = [points[0], points.at(-1)];
    const [dx, dy] = [b[0] - a[0], b[1] - a[1]];
    const length = Math.hypot(dx, dy);
    let [most, index] = [0, 0];
    points.forEach(([x, y], i) => {
        const distance = length > 0 ? Math.abs((x - a[0]) * dy - (y - a[1]) * dx) / length : Math.hypot(x - a[0], y - a[1]);
        if (distance > most)
            [most, index] = [distance, i];
    });
    if (most <= tolerance)
        return [a, b];
    return [...thinned(points.slice(0, index + 1), tolerance).slice(0, -1), ...thinned(points.slice(index), tolerance)];
}

/** The corners of an oval, with dents. */
export function oval(u, v, width, height, wobble = 0, corners = 28) {
    const phase = between(0, 6);
    return Array.from({ length: corners }, (_, i) => {
        const angle = 2 * Math.PI * i / corners;
        const reach = 1 + wobble * (Math.sin(2 * angle + phase) + 0.6 * Math.sin(3 * angle + 2 * phase));
        return [u + width * reach * Math.cos(angle), v + height * reach * Math.sin(angle)];
    });
}
