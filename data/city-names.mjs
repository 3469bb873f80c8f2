// The names of an invented town, for make-city.mjs.

export const STREETS = ['Acorn Street', 'Almond Row', 'Anchor Street', 'Apple Street', 'Ash Grove', 'Badger Street', 'Barley Street', 'Basket Row', 'Beacon Street',
    'Bell Street', 'Birch Road', 'Blossom Street', 'Bobbin Street', 'Bramble Road', 'Brewer Street', 'Bridle Road', 'Briar Street', 'Broom Street',
    'Candle Street', 'Carder Street', 'Cedar Road', 'Chandler Street', 'Cherry Street', 'Chestnut Road', 'Clover Street', 'Cobbler Street', 'Compass Street',
    'Cooper Street', 'Coral Street', 'Cornflower Road', 'Cotton Street', 'Crane Street', 'Crocus Street', 'Currant Street', 'Cutler Street',
    'Dahlia Street', 'Damson Road', 'Dapple Street', 'Dove Street', 'Drover Road', 'Dyer Street', 'Elder Street', 'Elm Road', 'Ember Street',
    'Fallow Road', 'Fennel Street', 'Fern Street', 'Finch Street', 'Flax Street', 'Foundry Street', 'Foxglove Road', 'Furrow Road', 'Gable Street',
    'Garnet Street', 'Glazier Street', 'Gooseberry Road', 'Granary Street', 'Hazel Street', 'Heather Road', 'Hedgerow Street', 'Heron Street',
    'Hollyhock Road', 'Honey Street', 'Hop Street', 'Iris Street', 'Ivy Street', 'Jasmine Road', 'Juniper Street', 'Kestrel Street', 'Kiln Street',
    'Lace Street', 'Ladder Street', 'Lamp Street', 'Lark Street', 'Laurel Road', 'Lavender Street', 'Lilac Street', 'Linden Road', 'Linnet Street',
    'Loom Street', 'Lupin Street', 'Magpie Street', 'Mallow Road', 'Maltings Street', 'Maple Road', 'Marigold Street', 'Mason Street', 'Medlar Street',
    'Mint Street', 'Mulberry Street', 'Myrtle Road', 'Nettle Street', 'Nightjar Road', 'Nutmeg Street', 'Oak Road', 'Olive Street', 'Orchid Street',
    'Osier Street', 'Paper Street', 'Parsley Street', 'Pear Street', 'Pepper Street', 'Pigeon Street', 'Pine Road', 'Plover Street', 'Plum Street',
    'Poplar Road', 'Poppy Street', 'Potter Street', 'Primrose Road', 'Quarry Street', 'Quill Street', 'Quince Street', 'Reed Street', 'Robin Street',
    'Rope Street', 'Rosemary Road', 'Rowan Street', 'Rye Street', 'Saddler Street', 'Saffron Street', 'Sage Street', 'Sailmaker Street', 'Sedge Road',
    'Shepherd Street', 'Silver Street', 'Skylark Road', 'Slate Street', 'Sloe Street', 'Sorrel Street', 'Sparrow Street', 'Spindle Street', 'Starling Road',
    'Stork Street', 'Sycamore Road', 'Tallow Street', 'Tansy Street', 'Tanner Street', 'Teasel Street', 'Thatcher Road', 'Thistle Street', 'Thyme Street',
    'Tile Street', 'Tinker Street', 'Tulip Street', 'Turner Street', 'Umber Street', 'Violet Street', 'Walnut Road', 'Warbler Street', 'Weaver Street',
    'Wheat Street', 'Wheelwright Road', 'Willow Street', 'Wool Street', 'Wren Street', 'Yarrow Road'];

export const AVENUES = ['Ferry Road', 'Lighthouse Avenue', 'Harbour Avenue', 'Republic Avenue', 'Observatory Road', 'Northern Boulevard', 'Chapel Road',
    'Aqueduct Avenue', 'Saltworks Road', 'Cathedral Avenue', 'Brewery Road', 'Garrison Avenue', 'Museum Avenue', 'Wharf Road', 'Exchange Avenue',
    'Parliament Road', 'Windmill Avenue', 'Abbey Road', 'Theatre Avenue'];

export const LANES = ['Bodkin Lane', 'Butter Lane', 'Cat’s Alley', 'Crooked Lane', 'Eel Lane', 'Friar’s Walk', 'Ink Lane', 'Needle Alley', 'Pie Lane', 'Pudding Lane',
    'Ravens’ Steps', 'Shoe Lane', 'Thimble Alley', 'Vinegar Lane', 'Whisper Alley', 'Yeoman Lane'];

export const LANTERN_STREETS = ['梅花街', '竹林路', '龙门街', '茶园路', '明月巷', '福寿街', '松鹤路', '长安街', '荷塘路', '玉泉街', '金鱼街', '白云路', '桂花巷', '凤凰街', '春风路', '石桥街'];

export const LANTERN_PLACES = [['restaurant', '聚福楼'], ['tea', '老茶馆'], ['shop', '东方书店'], ['restaurant', '月宫酒家'], ['temple', '观音寺'], ['pharmacy', '同仁药房'],
    ['tea', '清香茶室'], ['restaurant', '四川面馆'], ['shop', '丝绸庄'], ['theatre', '梨园戏院'], ['restaurant', '桃花源'], ['shop', '文房四宝'], ['hotel', '悦来客栈'],
    ['bakery', '稻香村'], ['tea', '龙井轩'], ['restaurant', '小笼包'], ['shop', '百草堂'], ['bank', '华侨银行'], ['restaurant', '醉仙楼'], ['shop', '三联书屋'], ['cafe', '雨前咖啡'],
    ['temple', '土地庙'], ['shop', '荣宝斋'], ['restaurant', '饺子馆'], ['library', '海天图书'], ['pharmacy', '回春堂'], ['tea', '竹里馆'], ['bakery', '凤梨酥'], ['restaurant', '火锅城']];

export const PLACES = {
    cafe: ['Café Meridian', 'The Copper Kettle', 'Bean & Barrow', 'Café Lumen', 'Second Cup', 'Morning Room', 'The Saucer', 'Café Orla', 'Slow Drip', 'Nook', 'Little Grounds', 'Corner Café'],
    restaurant: ['The Salted Pike', 'Osteria Fiume', 'Brasserie du Quai', 'Harrow Grill', 'Tavern of the Oar', 'Saffron House', 'The Gilded Goose', 'Fig & Thyme', 'Mill Kitchen',
        'Taverna Elia', 'The Long Table', 'Lentil House', 'Pepperpot', 'Smoke & Reed'],
    hotel: ['Grand Hotel Harrow', 'The Ferryman Inn', 'Hotel Astoria', 'Quayside Hotel', 'The Lamplighter', 'Station Lodge', 'Hotel Belvedere'],
    shop: ['Harrow Arcade', 'Market Hall', 'Pilgrim Books', 'The Wool Shop', 'Fenwright & Sons', 'Clockmaker', 'Toy Cellar', 'Green Grocer', 'Lantern Records', 'The Hat Stand', 'Bicycle Works', 'Map House'],
    bakery: ['Golden Crust', 'Bakery Holm', 'The Flour Mill', 'Oven & Ash', 'Rye Bakery', 'Sweet Loaf', 'Bun House'],
    museum: ['Maritime Museum', 'City Gallery', 'Museum of Glass', 'House of Letters'],
    theatre: ['Playhouse', 'Opera Harrowmere', 'Puppet Theatre', 'Cinema Rex'],
    church: ['Saint Aldhelm', 'Holy Trinity', 'Saint Mary at the Weir', 'Old Chapel', 'Saint Osyth'],
    bank: ['Harbour Bank', 'Savings Bank', 'Merchants’ Credit', 'River Trust'],
    pharmacy: ['Lion Pharmacy', 'Swan Pharmacy', 'Bridge Pharmacy', 'Elder Pharmacy', 'Sun Pharmacy'],
    post: ['Main Post Office', 'Post Office North', 'Post Office South'],
    library: ['City Library', 'Reading Room', 'Music Library'],
    parking: ['P Quay', 'P Old Town', 'P Arcade', 'P Exchange', 'P Central']
};

/** Name, column of the grid, and rows to the north of the river. */
export const QUARTERS = [['Old Town', 10, 2], ['Saltgate', 4, 2], ['Brewers’ Hill', 7, 6], ['New Town', 16, 7], ['Weirside', 19, 3], ['Northfields', 12, 12], ['Parkside', 6, 8],
    ['Harbour Wards', 17, -3], ['Millrace', 3, -4], ['Railway Cottages', 8, -9], ['Eastworks', 23, 4], ['Quarry End', 20, 10]];
