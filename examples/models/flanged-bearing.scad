// A flanged bearing housing: base plate with four counterbored holes, ribs, and a bored boss with
// a grease nipple's seat. Dimensions in millimetres.
//
//   openscad --export-format binstl -o flanged-bearing.stl flanged-bearing.scad

$fn = 96;

plate = [120, 80, 12];
corner = 10;
boss_diameter = 56;
boss_height = 46;
bore = 35;
seat = 42;
seat_depth = 15;

module plate_body() {
    translate([corner - plate[0] / 2, corner - plate[1] / 2, 0])
        linear_extrude(plate[2])
            minkowski() {
                square([plate[0] - 2 * corner, plate[1] - 2 * corner]);
                circle(corner, $fn = 64);
            }
}

module mounting_hole() {
    translate([0, 0, -1]) cylinder(d = 9, h = plate[2] + 2, $fn = 48);
    translate([0, 0, plate[2] - 5]) cylinder(d = 15, h = 6, $fn = 48);
}

module boss() {
    rotate_extrude()
        polygon([[0, 0], [boss_diameter / 2 + 8, 0], [boss_diameter / 2 + 8, plate[2]],
                 [boss_diameter / 2 + 2.5, plate[2] + 2], [boss_diameter / 2, plate[2] + 8],
                 [boss_diameter / 2, boss_height - 2], [boss_diameter / 2 - 2, boss_height], [0, boss_height]]);
}

module rib() {
    rotate([90, 0, 0])
        translate([0, 0, -3])
            linear_extrude(6)
                polygon([[boss_diameter / 2 - 2, plate[2] - 1], [plate[0] / 2 - 6, plate[2] - 1],
                         [boss_diameter / 2 - 2, boss_height - 10]]);
}

difference() {
    union() {
        plate_body();
        boss();
        for (side = [0, 180]) rotate(side) rib();
        translate([0, 0, boss_height - 14]) rotate([-90, 0, 0]) cylinder(d = 12, h = boss_diameter / 2 + 4);
    }
    translate([0, 0, -1]) cylinder(d = bore, h = boss_height + 2);
    translate([0, 0, boss_height - seat_depth]) cylinder(d = seat, h = seat_depth + 1);
    translate([0, 0, -1]) cylinder(d1 = bore + 6, d2 = bore, h = 4);
    translate([0, 0, boss_height - 14]) rotate([-90, 0, 0]) cylinder(d = 5, h = boss_diameter, $fn = 32);
    for (x = [-1, 1], y = [-1, 1])
        translate([x * (plate[0] / 2 - 14), y * (plate[1] / 2 - 14), 0]) mounting_hole();
}
