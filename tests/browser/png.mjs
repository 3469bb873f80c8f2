// Pictures in PNG, as far as renderers write them: 8 bits a channel, not interlaced.
import zlib from 'node:zlib';

const SIGNATURE = Buffer.from([0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a]);
const CHANNELS = { 0: 1, 2: 3, 4: 2, 6: 4 };

function paeth(left, above, corner) {
    const guess = left + above - corner;
    const [a, b, c] = [Math.abs(guess - left), Math.abs(guess - above), Math.abs(guess - corner)];
    return a <= b && a <= c ? left : b <= c ? above : corner;
}

/** The rows of a picture without their filters. */
function unfiltered(data, width, height, channels) {
    const stride = width * channels;
    const out = new Uint8Array(stride * height);
    for (let y = 0; y < height; y++) {
        const filter = data[y * (stride + 1)];
        for (let x = 0; x < stride; x++) {
            const at = y * stride + x;
            const left = x >= channels ? out[at - channels] : 0;
            const above = y > 0 ? out[at - stride] : 0;
            const corner = x >= channels && y > 0 ? out[at - stride - channels] : 0;
            const guess = [0, left, above, (left + above) >> 1, paeth(left, above, corner)][filter];
            out[at] = data[y * (stride + 1) + 1 + x] + guess;
        }
    }
    return out;
}

/** Red, green and blue of each pixel, drawn over white. */
export function decode(file) {
    let [width, height, channels] = [0, 0, 0];
    const parts = [];
    for (let at = 8; at < file.length;) {
        const length = file.readUInt32BE(at);
        const type = file.toString('latin1', at + 4, at + 8);
        const body = file.subarray(at + 8, at + 8 + length);
        if (type === 'IHDR') {
            [width, height, channels] = [body.readUInt32BE(0), body.readUInt32BE(4), CHANNELS[body[9]]];
            if (body[8] !== 8 || body[12] !== 0 || !channels)
                throw new Error('not a PNG of 8 bits a channel');
        }
        if (type === 'IDAT')
            parts.push(body);
        at += length + 12;
    }
    const pixels = unfiltered(zlib.inflateSync(Buffer.concat(parts)), width, height, channels);
    const out = new Float64Array(width * height * 3);
    for (let i = 0; i < width * height; i++) {
        const alpha = channels % 2 === 0 ? pixels[(i + 1) * channels - 1] / 255 : 1;
        for (let c = 0; c < 3; c++)
            out[i * 3 + c] = 255 + (pixels[i * channels + (channels > 2 ? c : 0)] - 255) * alpha;
    }
    return { width, height, pixels: out };
}

function chunk(type, body) {
    const out = Buffer.alloc(body.length + 12);
    out.writeUInt32BE(body.length, 0);
    out.write(type, 4, 'latin1');
    body.copy(out, 8);
    out.writeUInt32BE(crc(out.subarray(4, body.length + 8)), body.length + 8);
    return out;
}

function crc(bytes) {
    let sum = ~0;
    for (const byte of bytes) {
        sum ^= byte;
        for (let bit = 0; bit < 8; bit++)
            sum = sum & 1 ? (sum >>> 1) ^ 0xedb88320 : sum >>> 1;
    }
    return ~sum >>> 0;
}

/** A picture of which pixelAt(x, y) gives red, green, blue and alpha from 0 to 255. */
export function encode(width, height, pixelAt) {
    const data = Buffer.alloc((width * 4 + 1) * height);
    for (let y = 0; y < height; y++)
        for (let x = 0; x < width; x++)
            pixelAt(x, y).forEach((value, c) => { data[y * (width * 4 + 1) + 1 + x * 4 + c] = value; });
    const header = Buffer.alloc(13);
    header.writeUInt32BE(width, 0);
    header.writeUInt32BE(height, 4);
    header.set([8, 6, 0, 0, 0], 8);
    return Buffer.concat([SIGNATURE, chunk('IHDR', header), chunk('IDAT', zlib.deflateSync(data)),
        chunk('IEND', Buffer.alloc(0))]);
}

/** Each pixel as the mean of those around it, so many in each direction. */
function blurred({ width, height, pixels }, reach) {
    const out = new Float64Array(pixels.length);
    for (let y = 0; y < height; y++)
        for (let x = 0; x < width; x++)
            for (let c = 0; c < 3; c++) {
                let [sum, count] = [0, 0];
                for (let v = Math.max(0, y - reach); v <= Math.min(height - 1, y + reach); v++)
                    for (let u = Math.max(0, x - reach); u <= Math.min(width - 1, x + reach); u++, count++)
                        sum += pixels[(v * width + u) * 3 + c];
                out[(y * width + x) * 3 + c] = sum / count;
            }
    return out;
}

/** How much of two pictures differs, from 0 to 1, and a picture in which those pixels are red. */
export function compare(a, b, reach) {
    if (a.width !== b.width || a.height !== b.height)
        return { part: 1, picture: null };
    const [first, second] = [blurred(a, reach), blurred(b, reach)];
    const differs = i => [0, 1, 2].some(c => Math.abs(first[i * 3 + c] - second[i * 3 + c]) > 40);
    let count = 0;
    for (let i = 0; i < a.width * a.height; i++)
        count += differs(i);
    const picture = encode(a.width, a.height, (x, y) => {
        const i = y * a.width + x;
        return differs(i) ? [255, 0, 0, 255] : [0, 1, 2].map(c => 170 + b.pixels[i * 3 + c] / 3).concat(255);
    });
    return { part: count / (a.width * a.height), picture };
}
