#!/usr/bin/perl
# usage: tools/check-sources.pl
#
# Rules that the text of src/ keeps, and a compiler does not see. Its folders form a picture without circles, and includes
# point down in it: what the windows work on knows no window, and everything but src/win32 builds on any system. What a
# procedure puts on the trace is its name. Closes with "N passed, N failed", which counts these rules.
use strict;
use warnings;
use File::Find;
use FindBin;

chdir "$FindBin::Bin/.." or die "no project folder";

# Which folders a folder may include: of those above it here, so that there is no circle. The systems know only the
# interfaces above them, and nobody knows them but the entry points, which have no folder, and the commands, for which
# an export is a registry in memory.
my @table = map { [split ' ', $_] } split /\n/, <<'END';
platform
ui        platform
native    platform
win32     platform ui
simulated platform ui
util      platform
registry  platform util
errors    platform registry ui util
zones     platform registry util
icons     platform ui util
forms     errors icons platform registry ui util zones
mail      errors forms icons platform registry ui util zones
backup    errors forms icons platform registry ui util zones
editing   errors forms icons platform registry ui util zones
app       backup editing errors forms icons mail platform registry ui util zones
command   backup errors forms mail platform registry simulated ui util zones
.         app command native platform simulated ui win32
END

# Procedures that stand on the trace under a name of the old vocabulary.
my %traced_as = (
    'frmMain.ShowZone'                => 'frmMain.lvwZones_ItemClick',
    'clsRegistry.clsRegistry'         => 'clsRegistry.Class_Initialize',
    'clsRegistry.~clsRegistry'        => 'clsRegistry.Class_Terminate',
    'clsRegistry.readText'            => 'clsRegistry.ValueOf',
    'clsRegistry.readNumber'          => 'clsRegistry.ValueOf',
    'clsRegistry.readNumberOfAnyType' => 'clsRegistry.ValueOf',
    'zones.SetDefaults'               => 'frmAdd.SetDefaults',
    'zones.GetSecurity'               => 'basMain.GetSecurity',
);

my (%may, %broken);

# usage: check(RULE, whether it is kept, what to say when it is not)
sub check {
    my ($rule, $right, $what) = @_;
    $broken{$rule} //= 0;
    return if $right;
    $broken{$rule}++;
    print "$what\n";
}

sub folder_of { $_[0] =~ m{^([^/]+)/} ? $1 : '.' }

# The files that a text may not include, whose path is relative to src/. The language's own headers end in no ".h", and
# every C library has getopt.h.
sub forbidden_in {
    my ($path, $text) = @_;
    my ($from, @forbidden) = folder_of($path);
    while ($text =~ /^\s*#\s*include\s*([<"])([^>"]+)[>"]/mg) {
        my ($kind, $name) = ($1, $2);
        my $to = folder_of($name);
        my $allowed = $kind eq '<' ? $name !~ /\.h$/ || $name eq 'getopt.h' || $from eq 'win32'
                                   : $to ne '.' && ($from eq $to || $may{$from}{$to});
        push @forbidden, $name unless $allowed;
    }
    return "@forbidden";
}

for my $row (@table) {
    my ($folder, @below) = @$row;
    check(circle => exists $may{$_}, "$folder may include $_, which stands below it in the table") for @below;
    $may{$folder} = { map { $_ => 1 } @below };
}
check(includes => forbidden_in('zones/zones.h', "#include <windows.h>\n# include \"app/a.h\"\nint x;\n#include \"b.h\"\n")
        eq 'windows.h app/a.h b.h', 'the check of includes finds nothing');

my %texts;
find({ no_chdir => 1, wanted => sub {
    return unless /\.(?:h|cpp|rc)$/;
    open my $file, '<', $_ or die "$_: $!";
    local $/;
    $texts{ $_ =~ s{^src/}{}r } = <$file>;
} }, 'src');
check(includes => keys %texts > 50, 'src/ has hardly any files');

my $traces = 0;
for my $path (sort keys %texts) {
    my $forbidden = forbidden_in($path, $texts{$path});
    check(includes => $forbidden eq '', "src/$path includes what it may not (see the table): $forbidden");
    my ($outer, $name) = ('', '');
    for my $line (split /\n/, $texts{$path}) {
        $outer = $1 if $line =~ /^namespace (\w+)/;
        if    ($line =~ /^(?=\S)(?:[\w:<>&*, ]+[ &*])?(\w+)::(~?\w+)\(/) { $name = "$1.$2" }
        elsif ($line =~ /^(?=\S)[\w:<>&*]+[ &*]+(\w+)\(/)                { $name = "$outer.$1" }
        next unless $line =~ /procedure\("(\w+\.\w+)(?: \[[GL]et\])?"/;
        $traces++;
        check(traces => $1 eq ($traced_as{$name} // $name), "src/$path: $name stands on the trace as $1");
    }
}
check(traces => $traces > 100, 'hardly any procedure stands on the trace');

my $failed = grep { $_ > 0 } values %broken;
printf "%d passed, %d failed\n", keys(%broken) - $failed, $failed;
exit($failed > 0);
