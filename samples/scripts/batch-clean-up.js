// The same clean-up for all files of a folder.
//
//   zarnu script batch-clean-up.js [FOLDER [RESULTS [CHAIN [XUNIT [YUNIT]]]]]
//
//   FOLDER    holds the measured files                      (the samples)
//   RESULTS   gets a CSV for each of them and summary.csv   (cleaned, made where it is missing)
//   CHAIN     a template (.kzp) or a chain (.json)          (the samples' own, by the name of the file)
//   XUNIT     of files that do not tell theirs: wavenumber, nanometers, Raman shift ...
//   YUNIT     absorbance, transmittance, counts ...
//
// A file that cannot be read or processed is told, stands in the summary with the reason, and does not stop the others.

var SAMPLES = {
    polystyrene: {chain: '../clean-ir.json', x: 'wavenumber', y: 'absorbance'},
    raman: {chain: '../clean-raman.json', x: 'raman shift', y: 'counts'},
    dye: {chain: '../clean-uvvis.json', x: 'nanometers', y: 'absorbance'},
    nir: {chain: '../clean-nir.json', x: 'nanometers', y: 'arbitrary'}
};
var NO_DATA = /\.(js|json|kzp|klm|md|pdf|png|svg)$/i;

function fail(text) {
    throw new Error(text + '\nusage: zarnu script batch-clean-up.js [FOLDER [RESULTS [CHAIN [XUNIT [YUNIT]]]]]');
}

function quoted(text) {
    return '"' + String(text).replace(/\s+/g, ' ').replace(/"/g, '""') + '"';
}

// how a file is cleaned: as the arguments say, or as the sample of that name
function planOf(path) {
    if (args.length > 2)
        return {chain: workingPath(args[2]), x: args[3], y: args[4]};
    var plan = SAMPLES[baseName(path)];
    if (!plan)
        throw new Error('There is no chain for this file.');
    return plan;
}

// opens, cleans and writes one file; what came out of it
function clean(path, results) {
    var plan = planOf(path);
    document.items.forEach(function (item) { document.removeItem(item); }); // of the file before
    var points = 0, spectra = 0, peaks = 0, lowest = Infinity, highest = -Infinity;
    var items = openFile(path);
    items.forEach(function (item) {
        if (plan.x)
            item.setUnits(plan.x, plan.y || 'arbitrary');
        item.setProcessing(new ZarnuProcessing(plan.chain));
        item.spectra.forEach(function (spectrum) {
            points += spectrum.count();
            spectra += 1;
            peaks += spectrum.peaks().length;
            spectrum.yValues().forEach(function (y) {
                lowest = Math.min(lowest, y);
                highest = Math.max(highest, y);
            });
        });
    });
    exportData(items, results + '/' + baseName(path) + '.csv');
    return [spectra, points, peaks, lowest.toPrecision(6), highest.toPrecision(6)];
}

if (args.length > 5)
    fail('There are too many arguments.');
var folder = args.length > 0 ? workingPath(args[0]) : '..';
var results = workingPath(args.length > 1 ? args[1] : 'cleaned');
if (!fileExists(folder))
    fail('There is no folder ' + folder + '.');
if (args.length > 2 && !fileExists(workingPath(args[2])))
    fail('There is no chain ' + args[2] + '.');
var files = listFiles(folder).filter(function (path) { return !NO_DATA.test(path); });
if (files.length === 0)
    fail('There are no files in ' + folder + '.');
makeFolder(results);

newDocument();
var rows = ['file,spectra,points,peaks,lowest,highest,problem'];
var done = 0;
files.forEach(function (path) {
    var name = path.replace(/.*\//, '');
    try {
        rows.push([quoted(name)].concat(clean(path, results), '').join());
        ++done;
        print('done    ' + name);
    } catch (problem) {
        rows.push([quoted(name), '', '', '', '', '', quoted(problem.message)].join());
        print('FAILED  ' + name + ': ' + problem.message);
    }
});
writeText(results + '/summary.csv', rows.join('\n') + '\n');
print(done + ' of ' + files.length + ' files are in ' + results);
if (done === 0)
    throw new Error('No file could be cleaned.');
