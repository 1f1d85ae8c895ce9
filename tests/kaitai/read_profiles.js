// Compiles docs/wendlow_profile.ksy and reads with it every profile of the tree: it has to take and refuse what
// wendlow-profile takes and refuses, and to see the same fields, which for the seeds are those that they were made of.
// The JSON form of each that is taken has to follow docs/profile.schema.json.
//     node read_profiles.js PROJECT PACKAGES SEED_FIELDS WENDLOW_PROFILE
'use strict';

const assert = require('assert');
const childProcess = require('child_process');
const fs = require('fs');
const path = require('path');
const vm = require('vm');

const [project, packages, seedFields, tool] = process.argv.slice(2);
const load = (name) => require(path.join(packages, 'node_modules', name));

// The folders, and the files of each that Wendlow refuses.
const FOLDERS = {
    'tests/fuzz/seeds': ['count_past_end', 'count_zero', 'cut_in_heights', 'path_past_end', 'signature_only',
        'wrong_signature'],
    'tests/fuzz/regressions': ['count_wraps_32_bits', 'name_search_of_a_short_file', 'name_steps_before_the_area',
        'path_length_wraps_32_bits', 'terminator_past_end'],
    'docs/examples': ['Damaged.txt'],
};

// Seeds that hold something else than what they were made of: one declares another length than its path has, in the
// other five surplus bytes make the search for the name go by other units.
const NOT_AS_MADE = ['odd_path_length', 'surplus_bytes'];

async function compileReader() {
    const description = load('js-yaml').load(fs.readFileSync(path.join(project, 'docs/wendlow_profile.ksy'), 'utf8'));
    const files = await load('kaitai-struct-compiler').compile('javascript', description, null, false);
    const module = { exports: {} };
    const wrapper = vm.runInThisContext(
        `(function (exports, require, module) {${files['WendlowProfile.js']}\n})`, 'WendlowProfile.js');
    wrapper(module.exports, load, module);
    return module.exports.WendlowProfile || module.exports;
}

function fieldsOf(reader) {
    const entries = [];
    for (let i = 0; i < reader.numWindows; i++) {
        entries.push({
            kind: reader.kinds[i], x: reader.x[i], y: reader.y[i], width: reader.widths[i], height: reader.heights[i],
            pathLength: reader.pathLengths[i], path: Buffer.from(reader.paths[i].bytes).toString('hex'),
            text: reader.paths[i].text,
        });
    }
    return { name: reader.hasName ? reader.name : null, entries };
}

const hexOf = (units) => Buffer.from(units, 'utf16le').toString('hex');

// A text of the JSON form: a string, or its parts.
const textOf = (text) => (Array.isArray(text) ? text : [text])
    .map((part) => (typeof part === 'number' ? String.fromCharCode(part) : part)).join('');

function jsonOf(file) {
    const run = childProcess.spawnSync(tool, ['to-json', file], { encoding: 'utf8' });
    return run.status === 0 ? JSON.parse(run.stdout) : null;
}

function compareWithJson(fields, form) {
    assert.strictEqual(fields.entries.length, form.entries.length);
    fields.entries.forEach((entry, i) => {
        const other = form.entries[i];
        const kinds = { folder: 0, program: 1 };
        assert.strictEqual(entry.kind, typeof other.kind === 'number' ? other.kind : kinds[other.kind]);
        for (const name of ['x', 'y', 'width', 'height'])
            assert.strictEqual(entry[name], other[name], name);
        const odd = 'path_odd_byte' in other ? Buffer.from([other.path_odd_byte]).toString('hex') : '';
        assert.strictEqual(entry.path, hexOf(textOf(other.path)) + odd);
    });
    if ('name' in form)
        assert.strictEqual(fields.name, textOf(form.name));
}

function compareWithSeed(fields, seed) {
    assert.strictEqual(fields.name, seed.name);
    assert.deepStrictEqual(fields.entries, seed.entries.map((entry) => ({
        kind: entry.kind, x: entry.x, y: entry.y, width: entry.width, height: entry.height,
        pathLength: entry.path.length * 2, path: hexOf(entry.path), text: entry.path,
    })));
}

async function main() {
    const Reader = await compileReader();
    const Stream = load('kaitai-struct').KaitaiStream;
    const Ajv = load('ajv');
    const follows = new Ajv({ strictTypes: false })
        .compile(JSON.parse(fs.readFileSync(path.join(project, 'docs/profile.schema.json'), 'utf8')));
    const seeds = new Map(JSON.parse(fs.readFileSync(seedFields, 'utf8')).map((seed) => [seed.file, seed]));
    let taken = 0;
    let refused = 0;
    let ofSeeds = 0;
    for (const [folder, refusedNames] of Object.entries(FOLDERS)) {
        for (const name of fs.readdirSync(path.join(project, folder))) {
            const file = path.join(project, folder, name);
            const read = () => new Reader(new Stream(fs.readFileSync(file)));
            const form = jsonOf(file);
            try {
                assert.strictEqual(form === null, refusedNames.includes(name), 'wendlow-profile refuses it');
                if (form === null) {
                    assert.throws(read, 'the description takes it');
                    refused++;
                    continue;
                }
                const fields = fieldsOf(read());
                compareWithJson(fields, form);
                assert(follows(form), JSON.stringify(follows.errors));
                if (folder === 'tests/fuzz/seeds' && !NOT_AS_MADE.includes(name)) {
                    compareWithSeed(fields, seeds.get(name));
                    ofSeeds++;
                }
                taken++;
            } catch (error) {
                error.message = `${file}: ${error.message}`;
                throw error;
            }
        }
    }
    assert.deepStrictEqual([taken, refused, ofSeeds], [13, 12, 9]);
    for (const wrong of [{}, { format: 'wendlow profile', version: 1, entries: [], name: '' }])
        assert(!follows(wrong));
    console.log(`${taken} profiles read alike, ${refused} refused alike`);
}

main().catch((error) => {
    console.error(error);
    process.exit(1);
});
