// Reads images by the Kaitai Struct description of the format, and compares every field with what
// pelk-fcf lists. Usage: node kaitai-test.js PELK-FCF FCF.KSY
'use strict';

const assert = require('node:assert/strict');
const { execFileSync } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { after, before, test } = require('node:test');

const compiler = require('kaitai-struct-compiler');
const { KaitaiStream } = require('kaitai-struct');
const yaml = require('yaml');

const [tool, description] = process.argv.slice(2);
const pageBytes = 2112;
const somePayload = Buffer.from('a payload');
const fillerUnit = Buffer.from('c3afc2bfc2bd', 'hex');
const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'kaitai-test-'));
let Fcf;

before(async () => {
    const described = yaml.parse(fs.readFileSync(description, 'utf8'));
    const files = await compiler.compile('javascript', described);
    const parser = path.join(folder, 'Fcf.js');
    fs.writeFileSync(parser, files['Fcf.js']);
    Fcf = require(parser).Fcf;
});
after(() => fs.rmSync(folder, { recursive: true }));

const read = (image) => new Fcf(new KaitaiStream(image));

const own = (record, change = (value) => value) =>
    Object.fromEntries(Object.entries(record).filter(([name]) => !name.startsWith('_'))
        .map(([name, value]) => [name, change(value)]));

// What a line, or the lines of a text and the mark behind them, hold.
const textOf = (field) =>
    field.value ?? [field.firstLine, ...field.furtherLines.slice(0, -1)].join('\n');

// An image or companion read by the description, in the shape of pelk-fcf's listing.
function headerOf(parsed) {
    const { reserved, lineFeed, ...numbers } = own(parsed.preamble);
    const { functions, ...texts } = own(parsed.text);
    const records = functions.slice(0, -1).map((record) => own(record.function, textOf));
    return { ...numbers, ...own(texts, textOf), functions: records };
}

function listed(file) {
    return JSON.parse(execFileSync(tool, ['show', '--json', file])).files[0];
}

// Makes an image, and returns its path.
function create({
    name = 'top', payload = somePayload, module = 'GPM', device = 'Interface_FPGA',
    author = 'Ann', ci = '42', description = 'Rev B', functions = [],
}) {
    const binary = path.join(folder, `${name}.bin`);
    fs.writeFileSync(binary, payload);
    execFileSync(tool, [
        'create', binary, '--force', '--quiet', '--author', author, '--ci', ci,
        '--module', module, '--device', device, '--config', '10', '--version', '1.12',
        '--description', description, '--date-time', '2024-05-31T13:45:00', '--date-format', 'iso',
        ...functions.flatMap((texts) => ['--function', ...texts]),
    ], { stdio: 'pipe' });
    return path.join(folder, `${name}.fcf`);
}

// Compares the file, an image of `payload`, with its listing, and returns the listed header.
function compare(file, payload = somePayload) {
    const bytes = fs.readFileSync(file);
    const parsed = read(bytes);
    const shown = listed(file);
    // The names of codes and the version as one text are the listing's own.
    const { module, device, version, ...written } = shown.header;
    assert.deepEqual(headerOf(parsed), written);
    assert.equal(version, `${written.versionMajor}.${written.versionMinor}`);
    assert.deepEqual(Buffer.from(parsed.payload), payload);
    assert.deepEqual(parsed.preamble.reserved, Array(5).fill(0xffffffff));
    const textEnd = shown.headerBytes - parsed.filler.length;
    assert.equal(bytes.subarray(textEnd - 5, textEnd).toString(), '----\n');
    const units = Math.ceil(Math.max(0, pageBytes - textEnd) / fillerUnit.length);
    assert.deepEqual(Buffer.from(parsed.filler), Buffer.concat(Array(units).fill(fillerUnit)));
    return shown.header;
}

const images = {
    'no function': {},
    'several functions': {
        functions: [
            ['fft', 'Bob', '7', 'Spectrum'],
            ['', '', '', ''],
            ['window', 'Cid', 'A-8', 'Hann: 1024\nHamming: 512'],
        ],
    },
    'text that is not Latin': {
        name: 'радар', author: 'Ωρίων 李', ci: '№ ٤٢',
        description: 'Ünï\n雷達\n🛰️ orbit',
        functions: [['フィルタ', 'Žofie', '๗', 'Спектр\nΦάσμα']],
    },
    'text that is nearly a mark': {
        author: '----', ci: '---',
        description: '--\n - - -\n\n  Function name: no\nFilename: no\n\t--',
        functions: [['---', '----', '----', '--\n--']],
    },
    'one byte of payload': { payload: Buffer.from([0]) },
    'payload of more than a block': { payload: Buffer.alloc(64 * pageBytes + 1, 0xff) },
    'payload that begins like filler': { payload: Buffer.concat(Array(3).fill(fillerUnit)) },
    'payload that begins like text': { payload: Buffer.from('---\n----\nFilename: no\n') },
};
for (const [module, devices] of Object.entries({
    DFE: ['Interface_FPGA', 'Processing_FPGA_1', 'Clock_Master_Device'],
    DFE2: ['Processing_FPGA'],
    GPM: ['Interface_FPGA', 'Processing_FPGA_1', 'Processing_FPGA_2', 'Processing_FPGA_3'],
})) {
    for (const device of devices)
        images[`${device} of ${module}`] = { module, device };
}

for (const [name, build] of Object.entries(images)) {
    test(`image: ${name}`, () => compare(create(build), build.payload));
    test(`companion: ${name}`, () =>
        compare(create(build).replace(/fcf$/, 'txt'), Buffer.alloc(0)));
}

for (let end = pageBytes - 7; end <= pageBytes; ++end) {
    test(`text that ends at ${end}`, () => {
        const shortest = fs.readFileSync(create({ description: 'x' }));
        const missing = end - (shortest.indexOf('\n----\n') + 6);
        const file = create({ description: 'x'.repeat(1 + missing) });
        assert.equal(fs.readFileSync(file).indexOf('\n----\n') + 6, end);
        compare(file);
    });
}

// The window writes it, and it is no mark behind "Description: ".
test('a description that begins with a mark', () => {
    const file = create({ description: 'abc', functions: [['f', 'g', 'h', 'abc\ni']] });
    const image = fs.readFileSync(file, 'latin1').replace(/escription: abc/g, 'escription: ---');
    fs.writeFileSync(file, image, 'latin1');
    assert.equal(compare(file).description, '---');
});

// The window writes it too; then there is no filler.
test('a text of more than a page', () => {
    const file = create({ description: 'short' });
    const image = fs.readFileSync(file, 'latin1');
    const text = image.slice(0, image.indexOf('\n----\n') + 6);
    const longer = 'long'.repeat(pageBytes);
    fs.writeFileSync(file, text.replace('short', longer) + somePayload, 'latin1');
    assert.equal(compare(file).description, longer);
});

for (const part of [
    'Filename: ', 'CI No: ', 'Author: ', 'Date: ', 'Time: ', 'Description: ', '---\n',
    'Function name: ', 'Function author: ', 'Function CI No: ', 'Function description: ', '----\n',
]) {
    test(`refuses an image without "${part.trim()}"`, () => {
        const image = fs.readFileSync(create({ functions: [['f', 'g', 'h', 'i']] }));
        read(image);
        const damaged = image.toString('latin1').replaceAll(`\n${part}`, `\n?${part.slice(1)}`);
        assert.throws(() => read(Buffer.from(damaged, 'latin1')));
    });
}
