// Small styles of symbols: for each property, some of its values.
import { lines, points } from './data.mjs';

const NAMES = ['Aal', 'Bergheim an der Au', 'Cadolzburg', 'Dürrnhof', 'Eibach West', 'Fürth', 'Grünthal am See', 'Hof', 'Irrsdorf'];

const geojson = data => ({ type: 'geojson', data });
const withNames = (data, names) => ({ ...data,
    features: data.features.map((feature, i) => ({ ...feature, properties: { ...feature.properties, name: names[i] } })) });
const named = geojson(withNames(points, NAMES));
const roads = geojson(withNames(lines, ['Zigzag Street', 'Long and Winding Road', 'Ring']));
const crowd = geojson({ type: 'FeatureCollection', features: Array.from({ length: 60 }, (_, i) => ({ type: 'Feature',
    properties: { n: i * 7 % 60, name: `No ${i}`, kind: 'abc'[i % 3] },
    geometry: { type: 'Point', coordinates: [-19 + i * 23 % 39, -17 + i * 17 % 35] } })) });
const FONT = ['DejaVu Sans'];
const byKind = (a, b, c) => ['match', ['get', 'kind'], 'a', a, 'b', b, c];

const TEXT = { source: named, 'text-field': '{name}', 'text-font': FONT, 'text-size': 14 };
const ICON = { source: named, 'icon-image': 'pin' };
const BOTH = { source: named, ...TEXT, 'icon-image': 'pin', 'text-anchor': 'top', 'text-offset': [0, 0.6] };
const ROAD = { source: roads, 'text-field': '{name}', 'text-font': FONT, 'text-size': 14, 'symbol-placement': 'line' };
const ARROWS = { source: roads, 'icon-image': 'pin', 'symbol-placement': 'line', 'symbol-spacing': 60 };
const CROWD = { source: crowd, 'text-field': '{name}', 'text-font': FONT, 'text-size': 13 };
const FIELD = { source: named, 'icon-image': 'field', 'icon-color': '#c03020' };
const PLATE = { source: named, ...TEXT, 'icon-image': 'plate', 'icon-text-fit': 'both' };

// Property, what else is set, values. A value with `$` brings members of its own.
const PROPERTIES = [
    ['symbol-placement', TEXT, ['point']],
    ['symbol-placement', { ...ROAD }, ['line', 'line-center', { $: 'line', bearing: 50 }, { $: 'line', zoom: 2.6 }, { $: 'line', scale: 2 }]],
    ['symbol-placement', { ...ARROWS }, ['line', 'line-center']],
    ['symbol-spacing', ARROWS, [30, 90]],
    ['symbol-spacing', ROAD, [40, 150]],
    ['symbol-avoid-edges', ICON, [true]],
    ['symbol-sort-key', CROWD, [['get', 'n'], ['-', 0, ['get', 'n']]]],
    ['symbol-sort-key', { ...ICON, 'icon-allow-overlap': true, 'icon-size': 5, 'icon-image': byKind('pin', 'checks', 'spots') }, [['get', 'n'], ['-', 0, ['get', 'n']]]],
    ['symbol-z-order', { ...ICON, 'icon-allow-overlap': true, 'icon-size': 5, 'icon-image': byKind('pin', 'checks', 'spots') }, ['viewport-y', 'source', 'auto', { $: 'viewport-y', bearing: 120 }]],
    ['icon-allow-overlap', { source: crowd, 'icon-image': 'pin', 'icon-size': 2 }, [false, true]],
    ['icon-overlap', { source: crowd, 'icon-image': 'pin', 'icon-size': 2 }, ['never', 'always', 'cooperative']],
    ['icon-ignore-placement', { source: crowd, 'icon-image': 'pin', 'icon-size': 2 }, [true]],
    ['icon-optional', { ...CROWD, 'icon-image': 'pin', 'icon-size': 2 }, [true, false]],
    ['text-optional', { ...CROWD, 'icon-image': 'pin', 'text-anchor': 'left', 'text-offset': [1, 0] }, [true, false]],
    ['icon-rotation-alignment', { ...ICON, bearing: 40 }, ['map', 'viewport', 'auto']],
    ['icon-rotation-alignment', ARROWS, ['map', 'viewport']],
    ['icon-size', ICON, [0.5, 1.7, 3, byKind(1, 2, 0.7), { $: 1, scale: 2 }]],
    ['icon-text-fit', PLATE, ['none', 'width', 'height', 'both', { $: 'both', 'icon-image': 'checks' }, { $: 'both', scale: 2 }]],
    ['icon-text-fit', { ...PLATE, 'text-field': '東京都', 'text-writing-mode': ['vertical'] }, ['both']],
    ['icon-text-fit-padding', PLATE, [[2, 4, 6, 8]]],
    ['icon-image', ICON, ['pin', byKind('pin', 'spots', 'checks'), 'nothing', ['coalesce', ['image', 'nothing'], ['image', 'spots']], { $: 'pin', scale: 2 }, { $: 'pin', zoom: 2.3 }]],
    ['icon-rotate', ICON, [30, { $: byKind(0, 90, -45), 'icon-size': 2 }]],
    ['icon-padding', { source: crowd, 'icon-image': 'pin' }, [0, 12, [20, 0, 0, 0]]],
    ['icon-keep-upright', ARROWS, [true, false]],
    ['icon-offset', ICON, [[10, 5], { $: [10, 5], 'icon-size': 2, 'icon-rotate': 45 }]],
    ['icon-anchor', ICON, ['left', 'right', 'top', 'bottom', 'top-left', 'bottom-right', { $: 'bottom-left', 'icon-size': 2 }, 'top-right']],
    ['icon-pitch-alignment', { ...ICON, bearing: 40 }, ['map']],
    ['text-pitch-alignment', { ...TEXT, bearing: 40 }, ['map']],
    ['text-rotation-alignment', { ...TEXT, bearing: 40 }, ['map', 'viewport', 'auto']],
    ['text-rotation-alignment', ROAD, ['map', 'viewport']],
    ['text-field', TEXT, ['{name} ({n})', ['get', 'kind'], ['format', ['get', 'name'], { 'font-scale': 0.8 }, '\n', {}, ['get', 'n'], { 'text-color': '#c02020', 'font-scale': 1.4 }],
        ['format', ['image', 'pin'], ' ', ['get', 'kind'], { 'text-font': ['literal', ['DejaVu Sans Bold']] }], 'two\nlines']],
    ['text-font', TEXT, [['DejaVu Sans Bold'], ['DejaVu Serif'], ['Nowhere', 'DejaVu Sans'], ['DejaVu Sans Oblique']]],
    ['text-size', TEXT, [10, 24, byKind(10, 20, 14), ['interpolate', ['linear'], ['zoom'], 0, 8, 4, 24], { $: 16, scale: 2 }]],
    ['text-max-width', TEXT, [4, 20]],
    ['text-line-height', { ...TEXT, 'text-max-width': 5 }, [1, 2]],
    ['text-letter-spacing', TEXT, [0.2, -0.05]],
    ['text-letter-spacing', ROAD, [0.2]],
    ['text-justify', { ...TEXT, 'text-max-width': 5 }, ['left', 'right', 'center', { $: 'auto', 'text-anchor': 'left' }]],
    ['text-radial-offset', { ...TEXT, 'text-anchor': 'left' }, [1.5, { $: 1.5, 'text-anchor': 'bottom' }]],
    ['text-radial-offset', { ...CROWD, 'text-variable-anchor': ['top', 'bottom', 'left', 'right'] }, [1]],
    ['text-variable-anchor', { ...CROWD, 'text-justify': 'auto' }, [['top', 'bottom', 'left', 'right'], ['center', 'top-left'], { $: ['left', 'right'], 'text-offset': [1, 0] }]],
    ['text-variable-anchor-offset', CROWD, [['top', [0, 1], 'left', [1, 0], 'bottom', [0, -1]]]],
    ['text-anchor', TEXT, ['left', 'right', 'top', 'bottom', 'top-left', 'top-right', 'bottom-left', 'bottom-right']],
    ['text-max-angle', ROAD, [10, 90]],
    ['text-writing-mode', { ...TEXT, 'text-field': '東京都' }, [['vertical'], ['horizontal', 'vertical']]],
    ['text-rotate', TEXT, [20, byKind(0, 90, -30)]],
    ['text-padding', CROWD, [0, 10]],
    ['text-keep-upright', ROAD, [false, true, { $: true, bearing: 180 }]],
    ['text-transform', TEXT, ['uppercase', 'lowercase']],
    ['text-offset', TEXT, [[1, 0], [0, -1.5], { $: [1, 1], 'text-rotate': 45 }]],
    ['text-offset', ROAD, [[0, 1], [1, -1]]],
    ['text-allow-overlap', { ...CROWD, 'text-size': 20 }, [true, false]],
    ['text-overlap', { ...CROWD, 'text-size': 20 }, ['always', 'cooperative', 'never']],
    ['text-ignore-placement', CROWD, [true]],
    ['visibility', TEXT, ['none']],
    ['icon-opacity', ICON, [0.4, byKind(0.2, 0.6, 1)]],
    ['icon-color', FIELD, ['#3050c0', byKind('#c00', '#0a0', '#00c'), { $: '#3050c0', 'icon-size': 2 }, { $: '#3050c0', scale: 2 }]],
    ['icon-halo-color', { ...FIELD, 'icon-halo-width': 2 }, ['#ffd000', byKind('#ff0', '#000', '#0cc')]],
    ['icon-halo-width', { ...FIELD, 'icon-halo-color': '#ffd000' }, [1, 3, { $: 2, 'icon-size': 2 }]],
    ['icon-halo-blur', { ...FIELD, 'icon-halo-color': '#ffd000', 'icon-halo-width': 3 }, [1, 3]],
    ['icon-translate', ICON, [[10, 20], { $: [10, 20], bearing: 40 }]],
    ['icon-translate-anchor', { ...ICON, 'icon-translate': [10, 20], bearing: 40 }, ['map', 'viewport']],
    ['text-opacity', TEXT, [0.4, byKind(0.2, 0.6, 1)]],
    ['text-color', TEXT, ['#c02060', byKind('#c00', '#0a0', '#00c'), 'rgba(0, 0, 200, 0.5)']],
    ['text-halo-color', { ...TEXT, 'text-halo-width': 2 }, ['#ffd000', 'rgba(255, 255, 255, 0.7)']],
    ['text-halo-width', { ...TEXT, 'text-halo-color': '#ffffff' }, [1, 3, { $: 2, scale: 2 }]],
    ['text-halo-blur', { ...TEXT, 'text-halo-color': '#ffd000', 'text-halo-width': 3 }, [1, 3]],
    ['text-translate', TEXT, [[10, 20], { $: [10, 20], bearing: 40 }]],
    ['text-translate-anchor', { ...TEXT, 'text-translate': [10, 20], bearing: 40 }, ['map', 'viewport']],
    ['text-and-icon', BOTH, [{}, { zoom: 2.5 }, { scale: 2 }]]];

const PAINT = /^(icon|text)-(opacity|color|halo-\w+|translate(-anchor)?)$/;

/** @param styleCase makes a case of a name, layers, sources and a view. */
export function symbolStyles(styleCase) {
    const counts = {};
    return PROPERTIES.flatMap(([property, base, values]) => values.map(value => {
        const all = { ...base, ...(property === 'text-and-icon' ? value
            : value && typeof value === 'object' && '$' in value ? { ...value, [property]: value.$ } : { [property]: value }) };
        const { $: _, source, zoom = 2, bearing = 0, scale = 1, ...properties } = all;
        const layer = { id: 'layer', type: 'symbol', source: 'source', layout: {}, paint: {} };
        for (const [name, one] of Object.entries(properties))
            layer[PAINT.test(name) ? 'paint' : 'layout'][name] = one;
        counts[property] = (counts[property] ?? 0) + 1;
        const below = { id: 'line', type: 'line', source: 'source', paint: { 'line-color': '#b0a890' } };
        const one = styleCase(`symbol.${property}-${counts[property]}`, source === roads ? [below, layer] : [layer], { source }, { zoom, bearing, scale });
        one.style.sprite = 'data/sprite';
        return { ...one, hasText: true };
    }));
}
