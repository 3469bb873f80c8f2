// Writes vector tiles: a few features in each layer.

const varint = number => {
    const bytes = [];
    for (let rest = number; ; rest = Math.floor(rest / 128)) {
        if (rest < 128)
            return Buffer.from([...bytes, rest]);
        bytes.push(rest % 128 + 128);
    }
};
const bytesField = (field, body) => Buffer.concat([varint(field * 8 + 2), varint(body.length), body]);
const numberField = (field, number) => Buffer.concat([varint(field * 8), varint(number)]);
const packed = (field, numbers) => bytesField(field, Buffer.concat(numbers.map(varint)));
const zigzag = number => number < 0 ? -2 * number - 1 : 2 * number;
const command = (id, count) => id + count * 8;

const SHAPES = [
    [1, [command(1, 1), zigzag(2048), zigzag(2048)]],
    [2, [command(1, 1), zigzag(0), zigzag(100), command(2, 2), zigzag(4096), zigzag(1900), zigzag(-4096), zigzag(1900)]],
    [3, [command(1, 1), zigzag(500), zigzag(500), command(2, 3), zigzag(3000), zigzag(0), zigzag(0), zigzag(3000), zigzag(-3000), zigzag(0), command(7, 1)]]];

function layerOf(name, properties) {
    const keys = [...new Set(properties.flatMap(Object.keys))];
    const values = [...new Set(properties.flatMap(Object.values))];
    const features = properties.flatMap(one => SHAPES.map(([type, geometry]) => bytesField(2, Buffer.concat([
        packed(2, Object.entries(one).flatMap(([key, value]) => [keys.indexOf(key), values.indexOf(value)])),
        numberField(3, type), packed(4, geometry)]))));
    const valueOf = value => typeof value === 'number' ? numberField(5, value) : bytesField(1, Buffer.from(value));
    return bytesField(3, Buffer.concat([numberField(15, 2), bytesField(1, Buffer.from(name)), ...features,
        ...keys.map(key => bytesField(3, Buffer.from(key))), ...values.map(value => bytesField(4, valueOf(value))), numberField(5, 4096)]));
}

/** A tile whose layers, by their names, have a point, a line and an area of each of some sets of attributes. */
export const tileOf = layers => Buffer.concat(Object.entries(layers).map(([name, properties]) => layerOf(name, properties)));
