<?xml version='1.0' encoding='UTF-8'?>
<osgb:FeatureCollection xmlns:osgb='http://www.ordnancesurvey.co.uk/xml/namespaces/osgb' xmlns:gml='http://www.opengis.net/gml'>
<gml:description>An invented village</gml:description>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000001'>
<osgb:theme>Roads Tracks And Paths</osgb:theme>
<osgb:descriptiveGroup>Road Or Track</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412300.00,284210.00 412340.00,284215.16 412380.00,284219.32 412420.00,284221.66 412460.00,284221.74 412500.00,284219.54 412540.00,284215.49 412580.00,284210.37 412620.00,284205.17 412660.00,284200.92 412700.00,284198.43 412700.00,284205.43 412660.00,284207.92 412620.00,284212.17 412580.00,284217.37 412540.00,284222.49 412500.00,284226.54 412460.00,284228.74 412420.00,284228.66 412380.00,284226.32 412340.00,284222.16 412300.00,284217.00 412300.00,284210.00</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000002'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412320.00,284228.64 412330.91,284230.06 412329.88,284238.00 412318.97,284236.58 412320.00,284228.64</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000003'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412362.00,284233.63 412375.93,284235.06 412374.90,284245.01 412360.98,284243.58 412362.00,284233.63</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000004'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412405.00,284237.03 412421.98,284237.92 412421.56,284245.91 412404.58,284245.02 412405.00,284237.03</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000005'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412450.00,284237.94 412461.00,284237.80 412461.13,284247.80 412450.13,284247.94 412450.00,284237.94</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000006'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412496.00,284235.86 412509.96,284234.79 412510.57,284242.77 412496.61,284243.83 412496.00,284235.86</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000007'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412540.00,284231.49 412556.88,284229.49 412558.06,284239.42 412541.18,284241.42 412540.00,284231.49</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000008'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412590.00,284225.03 412600.90,284223.58 412601.96,284231.51 412591.05,284232.96 412590.00,284225.03</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000009'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412640.00,284218.87 412653.92,284217.38 412654.99,284227.32 412641.07,284228.81 412640.00,284218.87</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000010'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412340.00,284195.16 412351.91,284196.59 412350.84,284205.53 412338.92,284204.09 412340.00,284195.16</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000011'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412420.00,284201.66 412431.99,284202.04 412431.71,284211.04 412419.72,284210.66 412420.00,284201.66</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000012'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412480.00,284200.91 412491.98,284200.25 412492.48,284209.23 412480.50,284209.90 412480.00,284200.91</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000013'>
<osgb:theme>Buildings</osgb:theme>
<osgb:descriptiveGroup>Building</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412560.00,284193.00 412571.90,284191.46 412573.05,284200.39 412561.15,284201.93 412560.00,284193.00</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000014'>
<osgb:theme>Land</osgb:theme>
<osgb:descriptiveGroup>Natural Environment</osgb:descriptiveGroup>
<osgb:make>Natural</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412530.00,284150.00 412690.00,284150.00 412685.00,284196.00 412535.00,284194.00 412530.00,284150.00</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs><gml:innerBoundaryIs>
<gml:LinearRing><gml:coordinates>412614.00,284170.00 412612.12,284174.50 412607.00,284177.79 412600.00,284179.00 412593.00,284177.79 412587.88,284174.50 412586.00,284170.00 412587.88,284165.50 412593.00,284162.21 412600.00,284161.00 412607.00,284162.21 412612.12,284165.50 412614.00,284170.00</gml:coordinates></gml:LinearRing>
</gml:innerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicArea fid='osgb1000000200000015'>
<osgb:theme>Water</osgb:theme>
<osgb:descriptiveGroup>Inland Water</osgb:descriptiveGroup>
<osgb:make>Natural</osgb:make>
<osgb:polygon><gml:Polygon srsName='osgb:BNG'><gml:outerBoundaryIs>
<gml:LinearRing><gml:coordinates>412614.00,284170.00 412612.12,284174.50 412607.00,284177.79 412600.00,284179.00 412593.00,284177.79 412587.88,284174.50 412586.00,284170.00 412587.88,284165.50 412593.00,284162.21 412600.00,284161.00 412607.00,284162.21 412612.12,284165.50 412614.00,284170.00</gml:coordinates></gml:LinearRing>
</gml:outerBoundaryIs></gml:Polygon></osgb:polygon>
</osgb:TopographicArea></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicLine fid='osgb1000000200000016'>
<osgb:theme>Water</osgb:theme>
<osgb:descriptiveGroup>Inland Water</osgb:descriptiveGroup>
<osgb:make>Natural</osgb:make>
<osgb:polyline><gml:LineString srsName='osgb:BNG'>
<gml:coordinates>412300.00,284285.00 412320.00,284287.34 412340.00,284289.30 412360.00,284290.59 412380.00,284291.00 412400.00,284290.46 412420.00,284289.05 412440.00,284287.01 412460.00,284284.65 412480.00,284282.34 412500.00,284280.46 412520.00,284279.29 412540.00,284279.02 412560.00,284279.70 412580.00,284281.21 412600.00,284283.32 412620.00,284285.70 412640.00,284287.96 412660.00,284289.76 412680.00,284290.81 412700.00,284290.94</gml:coordinates>
</gml:LineString></osgb:polyline>
</osgb:TopographicLine></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicLine fid='osgb1000000200000017'>
<osgb:theme>Land</osgb:theme>
<osgb:descriptiveGroup>General Feature</osgb:descriptiveGroup>
<osgb:make>Manmade</osgb:make>
<osgb:polyline><gml:LineString srsName='osgb:BNG'>
<gml:coordinates>412300.00,284268.00 412430.00,284271.00 412540.00,284269.00 412700.00,284273.00</gml:coordinates>
</gml:LineString></osgb:polyline>
</osgb:TopographicLine></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicLine fid='osgb1000000200000018'>
<osgb:theme>Administrative Boundaries</osgb:theme>
<osgb:descriptiveGroup>Political Or Administrative</osgb:descriptiveGroup>
<osgb:make>Unknown</osgb:make>
<osgb:polyline><gml:LineString srsName='osgb:BNG'>
<gml:coordinates>412300.00,284300.00 412700.00,284161.00</gml:coordinates>
</gml:LineString></osgb:polyline>
</osgb:TopographicLine></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicPoint fid='osgb1000000200000019'>
<osgb:theme>Land</osgb:theme>
<osgb:descriptiveGroup>Natural Environment</osgb:descriptiveGroup>
<osgb:make>Natural</osgb:make>
<osgb:point><gml:Point srsName='osgb:BNG'><gml:coordinates>412315.00,284200.00</gml:coordinates></gml:Point></osgb:point>
</osgb:TopographicPoint></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicPoint fid='osgb1000000200000020'>
<osgb:theme>Land</osgb:theme>
<osgb:descriptiveGroup>Natural Environment</osgb:descriptiveGroup>
<osgb:make>Natural</osgb:make>
<osgb:point><gml:Point srsName='osgb:BNG'><gml:coordinates>412390.00,284250.00</gml:coordinates></gml:Point></osgb:point>
</osgb:TopographicPoint></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicPoint fid='osgb1000000200000021'>
<osgb:theme>Land</osgb:theme>
<osgb:descriptiveGroup>Natural Environment</osgb:descriptiveGroup>
<osgb:make>Natural</osgb:make>
<osgb:point><gml:Point srsName='osgb:BNG'><gml:coordinates>412610.00,284196.00</gml:coordinates></gml:Point></osgb:point>
</osgb:TopographicPoint></osgb:topographicMember>
<osgb:topographicMember><osgb:TopographicPoint fid='osgb1000000200000022'>
<osgb:theme>Land</osgb:theme>
<osgb:descriptiveGroup>Natural Environment</osgb:descriptiveGroup>
<osgb:make>Natural</osgb:make>
<osgb:point><gml:Point srsName='osgb:BNG'><gml:coordinates>412675.00,284160.00</gml:coordinates></gml:Point></osgb:point>
</osgb:TopographicPoint></osgb:topographicMember>
</osgb:FeatureCollection>
