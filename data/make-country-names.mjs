// Makes country-names.geojson of countries-50m.json: where a country's name stands, and how much room there is.
// make-data runs it beside the npm packages that it reads.
import { readFileSync, writeFileSync } from "node:fs";
import polylabel from "polylabel";
import { feature } from "topojson-client";

const folder = process.argv[2];
const topology = JSON.parse(readFileSync(`${folder}/countries-50m.json`, "utf8"));

// A Mercator map in degrees of the equator: names stand on such maps, and areas near the poles are large on them.
const radians = Math.PI / 180;
const limit = 84;
const toMap = ([x, y]) => [x, Math.log(Math.tan(Math.PI / 4 + (Math.max(-limit, Math.min(limit, y)) * radians) / 2)) / radians];
const toLatitude = (y) => (2 * Math.atan(Math.exp(y * radians)) - Math.PI / 2) / radians;
const rounded = (value, digits) => Math.round(value * 10 ** digits) / 10 ** digits;

// In square degrees on the sphere, so that Greenland is no continent.
function area(rings) {
    return rings.reduce((sum, ring, number) => {
        let twice = 0;
        for (let i = 1; i < ring.length; i++) {
            const [ax, ay] = ring[i - 1], [bx, by] = ring[i];
            twice += (bx - ax) * (Math.sin(ay * radians) + Math.sin(by * radians)) / radians;
        }
        return sum + (number === 0 ? 1 : -1) * Math.abs(twice / 2);
    }, 0);
}

const names = feature(topology, topology.objects.countries).features.map(({ properties, geometry }) => {
    const polygons = geometry.type === "Polygon" ? [geometry.coordinates] : geometry.coordinates;
    const largest = polygons.reduce((best, polygon) => (area(polygon) > area(best) ? polygon : best));
    const [x, y] = polylabel(largest.map((ring) => ring.map(toMap)), 0.05);
    const size = Math.sqrt(polygons.reduce((sum, polygon) => sum + area(polygon), 0));
    return {
        type: "Feature",
        properties: { name: properties.name, size: rounded(size, 2) },
        geometry: { type: "Point", coordinates: [rounded(x, 3), rounded(toLatitude(y), 3)] },
    };
});
names.sort((a, b) => b.properties.size - a.properties.size || (a.properties.name < b.properties.name ? -1 : 1));
const lines = names.map((name) => JSON.stringify(name)).join(",\n");
writeFileSync(`${folder}/country-names.geojson`, `{"type":"FeatureCollection","features":[\n${lines}\n]}\n`);
