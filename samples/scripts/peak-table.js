// The bands of many files in one table.
//
//   zarnu script peak-table.js [OUT.csv [CHAIN|- [XUNIT [YUNIT [FILE...]]]]]
//
//   OUT.csv   the table, a row for each band            (peaks.csv)
//   CHAIN     a template (.kzp) or a chain (.json) that is run before; - for none, which picks with standard settings
//   XUNIT     of files that do not tell theirs: wavenumber, nanometers, raman shift ...; - leaves it as it is
//   YUNIT     absorbance, transmittance, counts ...; - leaves it as it is
//   FILE...   files of any format that opens
//
// Without files the table is made of the samples of infrared and Raman, each by its own chain.

var SAMPLES = [
    {path: '../polystyrene.csv', chain: '../clean-ir.json', x: 'wavenumber', y: 'absorbance'},
    {path: '../raman.csv', chain: '../clean-raman.json', x: 'raman shift', y: 'counts'}
];
var USAGE = 'usage: zarnu script peak-table.js [OUT.csv [CHAIN|- [XUNIT [YUNIT [FILE...]]]]]';

function given(place) {
    return args.length > place && args[place] !== '-' ? args[place] : undefined;
}

function quoted(text) {
    return '"' + String(text).replace(/\s+/g, ' ').replace(/"/g, '""') + '"';
}

// a row for each band of an item, from low to high x
function rowsOf(name, item) {
    var rows = [];
    item.spectra.forEach(function (spectrum) {
        var peaks = spectrum.peaks().sort(function (a, b) { return a.center - b.center; });
        peaks.forEach(function (peak, place) {
            rows.push([quoted(name), quoted(spectrum.title), place + 1, peak.center.toFixed(2),
                       quoted(spectrum.getSetOrigXUnits('', true)), peak.intensity.toPrecision(6),
                       peak.width.toFixed(2), peak.isPositive ? 'up' : 'down', quoted(peak.annotation)].join());
        });
    });
    return rows;
}

function prepared(job) {
    document.items.forEach(function (item) { document.removeItem(item); }); // of the file before
    var items = openFile(job.path);
    items.forEach(function (item) {
        if (job.x)
            item.setUnits(job.x, job.y || 'arbitrary');
        if (job.chain)
            item.setProcessing(new ZarnuProcessing(job.chain));
        for (var i = 0; i < item.specCount; ++i) {
            if (item.specCount > 1)
                item.curSpecIndex = i;
            item.forceStdPeaks();
        }
    });
    return items;
}

var out = workingPath(args.length > 0 ? args[0] : 'peaks.csv');
var chain = given(1) ? workingPath(given(1)) : undefined;
if (args.length > 1 && args.length < 5)
    throw new Error('There are no files.\n' + USAGE);
if (chain && !fileExists(chain))
    throw new Error('There is no chain ' + args[1] + '.\n' + USAGE);
var jobs = args.length < 5 ? SAMPLES : args.slice(4).map(function (file) {
    return {path: workingPath(file), chain: chain, x: given(2), y: given(3)};
});

newDocument();
var rows = ['file,spectrum,number,position,unit,height,width,direction,annotation'];
var failed = 0;
jobs.forEach(function (job) {
    var name = job.path.replace(/.*\//, '');
    try {
        var found = [];
        prepared(job).forEach(function (item) { found = found.concat(rowsOf(name, item)); });
        rows = rows.concat(found);
        print(name + ': ' + found.length + ' bands');
    } catch (problem) {
        ++failed;
        print(name + ': FAILED: ' + problem.message);
    }
});
if (failed === jobs.length)
    throw new Error('No file could be read.');
writeText(out, rows.join('\n') + '\n');
print(out);
