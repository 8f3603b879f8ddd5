// How scatter correction and quotient normalization bring spectra of powders together.
//
//   zarnu script msc-pqn.js [SERIES [FOLDER]]
//
//   SERIES   a file with the spectra of three samples or more   (../nir.csv)
//   FOLDER   gets before.svg, msc.svg, pqn.svg and spread.csv   (scatter, made where it is missing)
//
// Grain size and packing multiply and shift a powder's spectrum, which hides what differs chemically. The spread is the
// standard deviation between the spectra at one x. Multiplicative scatter correction (MSC) takes out a slope and an
// offset, probabilistic quotient normalization (PQN) a factor only. Where the spread is largest after the correction,
// the samples differ in what they are made of: in the sample of starches at the band of water near 1934 nm.

var METHODS = [
    {name: 'before', label: '', title: 'As measured'},
    {name: 'msc', label: 'Multiplicative Scatter Correction', title: 'MSC'},
    {name: 'pqn', label: 'Probabilistic Quot. Norm.', title: 'PQN'}
];
var USAGE = 'usage: zarnu script msc-pqn.js [SERIES [FOLDER]]';

// mean spread over all x, the largest one and where it stands
function spreadOf(item) {
    var curves = item.spectra.map(function (spectrum) { return spectrum.yValues(); });
    var x = item.xValues(), n = curves.length;
    var spread = {mean: 0, largest: 0, at: NaN};
    for (var i = 0; i < x.length; ++i) {
        var mean = 0, squares = 0;
        for (var k = 0; k < n; ++k)
            mean += curves[k][i] / n;
        for (k = 0; k < n; ++k)
            squares += Math.pow(curves[k][i] - mean, 2);
        var deviation = Math.sqrt(squares / (n - 1));
        spread.mean += deviation / x.length;
        if (deviation > spread.largest) {
            spread.largest = deviation;
            spread.at = x[i];
        }
    }
    return spread;
}

// A chain with one action. Actions that compare spectra need another one behind them, else they have no figures.
function chainOf(label) {
    var chain = new ZarnuProcessing();
    chain.setApplyNothing();
    if (label) {
        var all = chain.actions;
        chain.apply(label);
        var changed = chain.actions.filter(function (action, i) { return action.apply !== all[i].apply; });
        chain.actions = changed.concat(all.filter(function (action) {
            return action.yrexProcOpId !== changed[0].yrexProcOpId;
        }));
    }
    return chain;
}

if (args.length > 2)
    throw new Error('There are too many arguments.\n' + USAGE);
var series = args.length > 0 ? workingPath(args[0]) : '../nir.csv';
var folder = workingPath(args.length > 1 ? args[1] : 'scatter');
var item = openFile(series)[0];
if (item.specCount < 3)
    throw new Error(series + ' holds ' + item.specCount + ' spectra; three or more are needed.\n' + USAGE);
if (args.length === 0)
    item.setUnits('nanometers', 'absorbance'); // log(1/R), the absorbance of a powder
makeFolder(folder);

var rows = ['method,mean spread,largest spread,at x'];
print('method   mean spread  largest spread  at x');
METHODS.forEach(function (method) {
    item.setProcessing(chainOf(method.label));
    var spread = spreadOf(item);
    rows.push([method.name, spread.mean.toPrecision(6), spread.largest.toPrecision(6), spread.at].join());
    print((method.name + '         ').slice(0, 9) + spread.mean.toFixed(4) + '       ' + spread.largest.toFixed(4) +
          '          ' + spread.at);
    item.setProperties({'title.format': method.title, 'stack.displayMode': 2, 'plot.legend': false});
    item.zoom();
    exportPicture(item, folder + '/' + method.name + '.svg', {width: 120, height: 80});
});
writeText(folder + '/spread.csv', rows.join('\n') + '\n');
print(folder);
