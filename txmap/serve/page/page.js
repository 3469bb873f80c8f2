'use strict';
// A map of the style that is served. The address remembers the view as #ZOOM/LATITUDE/LONGITUDE, with the zoom of styles,
// which is one less than Leaflet's: tiles have 512 pixels.
(async () => {
    const LOOK_EVERY = 1000;
    const get = async path => {
        const answer = await fetch(path, { cache: 'no-store' });
        if (!answer.ok)
            throw new Error(`${path}: ${answer.status}`);
        return answer.json();
    };
    const problem = document.getElementById('problem');
    const tell = text => {
        problem.textContent = text;
        problem.hidden = !text;
    };

    const viewOf = (style, hash) => {
        const [zoom, latitude, longitude] = hash.replace('#', '').split('/').map(Number);
        if (Number.isFinite(zoom) && Number.isFinite(latitude) && Number.isFinite(longitude))
            return { zoom, center: [latitude, longitude] };
        const [lon = 0, lat = 0] = style.center ?? [];
        return { zoom: Math.round(style.zoom ?? 0), center: [lat, lon] };
    };
    const creditsOf = style => [...new Set(Object.values(style.sources ?? {}).map(source => source.attribution))]
        .filter(credit => typeof credit === 'string');

    let state = await get('state');
    let style = {};
    try {
        style = await get('style.json');
    } catch (error) {
        tell(String(error.message));
    }
    document.title = style.name ?? 'txmap';
    const map = L.map('map', { minZoom: 1, maxZoom: 23, worldCopyJump: true });
    map.attributionControl.setPrefix('Leaflet');
    const show = () => {
        const view = viewOf(style, location.hash);
        map.setView(view.center, view.zoom + 1, { animate: false });
    };
    show();
    addEventListener('hashchange', show);
    map.on('moveend', () => {
        const { lat, lng } = map.getCenter();
        history.replaceState(null, '', `#${map.getZoom() - 1}/${lat.toFixed(5)}/${lng.toFixed(5)}`);
    });

    const address = () => `{z}/{x}/{y}{r}.png?v=${state.version}`;
    const escaped = text => new Option(text).innerHTML;
    const tiles = L.tileLayer(address(), { tileSize: 512, zoomOffset: -1, minZoom: 1, maxZoom: 23,
        attribution: creditsOf(style).map(escaped).join(', ') }).addTo(map);
    tell(state.problem);

    setInterval(async () => {
        try {
            const next = await get('state');
            tell(next.problem);
            if (next.version !== state.version) {
                state = next;
                tiles.setUrl(address());
            }
        } catch {
            tell('The server does not answer.');
        }
    }, LOOK_EVERY);
})();
